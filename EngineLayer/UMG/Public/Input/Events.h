#pragma once

/** A pointer event; empty here. */
struct FPointerEvent
{
};
