#pragma once

#include <QObject>

#include <optional>

namespace Flitmark
{

/** Asks the desktop to leave the screen on. Where no desktop answers, nothing happens; the end of the program takes the wish back. */
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
	/** The wish is on its way. */
	bool bAsking = false;
	/** The desktop's number of the wish that it has granted. */
	std::optional<uint> Cookie;
};

} // namespace Flitmark
