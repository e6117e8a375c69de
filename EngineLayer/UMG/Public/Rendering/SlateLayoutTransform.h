#pragma once

/** From a widget's units to the screen's; here both are the same. */
class FSlateLayoutTransform
{
};
