#pragma once

/** What a widget's parents pass down of their look; nothing here. */
class FWidgetStyle
{
};
