#pragma once

namespace Flitmark
{

/** Takes over what was read; whether it differs from what was known. */
template <class T>
bool TakeNew(T& Known, const T& Now)
{
	if (Known == Now)
	{
		return false;
	}
	Known = Now;
	return true;
}

} // namespace Flitmark
