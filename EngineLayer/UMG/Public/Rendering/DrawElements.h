#pragma once

#include "Templates/SharedPointer.h"

class SWindow;

/** What a window's widgets draw. Drawing is up to the hosts, so it stays empty here. */
class FSlateWindowElementList
{
public:
	explicit FSlateWindowElementList(const TSharedPtr<SWindow>&) {}
	FSlateWindowElementList(const FSlateWindowElementList&) = delete;
	FSlateWindowElementList& operator=(const FSlateWindowElementList&) = delete;
};
