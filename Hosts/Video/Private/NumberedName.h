#pragma once

#include "CoreTypes.h"

#include <optional>
#include <string>
#include <string_view>

namespace Flitmark
{

/** A file name with a place for a number: "out-%05d.png"; %% stands for a percent sign. */
class FNumberedName
{
public:
	/** Empty if there is not exactly one place, or a percent sign stands for anything else. */
	static std::optional<FNumberedName> Parse(std::string_view InPattern);

	std::string Name(int64 InNumber) const;

private:
	std::string Before;
	std::string After;

	/** Least number of digits. */
	size_t Digits = 1;
};

} // namespace Flitmark
