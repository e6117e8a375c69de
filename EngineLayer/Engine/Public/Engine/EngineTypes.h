#pragma once

#include "CoreTypes.h"

/** Identifies a timer in a world's timer manager. */
class FTimerHandle
{
public:
	bool IsValid() const { return Id != 0; }
	void Invalidate() { Id = 0; }
	friend bool operator==(const FTimerHandle&, const FTimerHandle&) = default;

private:
	friend class FTimerManager;
	uint64 Id = 0;
};

/** What a world is for. */
namespace EWorldType
{
enum Type
{
	None,
	Game,
};
}
