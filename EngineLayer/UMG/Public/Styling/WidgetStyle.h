#pragma once

/** The style that a widget's parents pass down; empty here. */
class FWidgetStyle
{
};
