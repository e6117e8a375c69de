#pragma once

namespace Flitmark
{

/** Takes over what was read; whether it differs from what was known. */
template <class T>
bool TakeNew(T& InOutKnown, const T& InNow)
{
	if (InOutKnown == InNow)
	{
		return false;
	}
	InOutKnown = InNow;
	return true;
}

} // namespace Flitmark
