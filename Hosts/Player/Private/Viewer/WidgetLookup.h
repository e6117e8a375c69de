#pragma once

#include "Blueprint/UserWidget.h"

namespace Flitmark
{

/** A widget that the class binds by name, so every blueprint of it has one. */
template <class T>
T& GetBoundWidget(const UUserWidget& InOwner, const TCHAR* InName)
{
	return *Cast<T>(InOwner.GetWidgetFromName(InName));
}

} // namespace Flitmark
