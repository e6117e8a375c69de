#pragma once

#include "Templates/SharedPointer.h"

/** A widget under construction, completed by its arguments. */
template <class WidgetType>
struct TSlateDecl
{
	TSharedRef<WidgetType> operator<<=(const typename WidgetType::FArguments& InArguments) const
	{
		TSharedRef<WidgetType> Widget = MakeShared<WidgetType>();
		Widget->Construct(InArguments);
		return Widget;
	}
};

#define SNew(WidgetType) TSlateDecl<WidgetType>() <<= WidgetType::FArguments()
