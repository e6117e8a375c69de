#pragma once

/** What the pointer did; reduced to the fact. */
struct FPointerEvent
{
};
