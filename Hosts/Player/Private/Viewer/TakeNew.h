#pragma once

namespace Flitmark
{

/** Assigns the new value; true if it is different. */
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
