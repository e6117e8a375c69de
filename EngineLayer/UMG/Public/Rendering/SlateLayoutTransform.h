#pragma once

/** From a widget's units to the screen's, which are the same here. */
class FSlateLayoutTransform
{
};
