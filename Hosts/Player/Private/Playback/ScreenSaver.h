#pragma once

#include <QObject>

#include <optional>

namespace Flitmark
{

/** Asks the desktop to keep the screen on. Does nothing if no desktop answers; the request ends with the program. */
class FScreenSaver final : public QObject
{
	Q_OBJECT

public:
	using QObject::QObject;

	void SetHeldOff(bool bInHeldOff);

private:
	void HoldOff();
	void Release();

	bool bHeldOff = false;
	/** A request is on its way. */
	bool bAsking = false;
	/** The desktop's handle of the request that it granted. */
	std::optional<uint> Cookie;
};

} // namespace Flitmark
