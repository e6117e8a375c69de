#include "UObject/WeakObjectPtrTemplates.h"

#include <vector>

namespace
{

struct FSlot
{
	UObject* Object = nullptr;
	int32 Serial = 0;
};

// Never destroyed: objects that were never collected stay in the table to the very end.
std::vector<FSlot>& Slots = *new std::vector<FSlot>();
std::vector<int32> FreeSlots;

FSlot& SlotAt(int32 Index)
{
	return Slots[static_cast<std::size_t>(Index)];
}

} // namespace

int32 FObjectSlots::Allocate(UObject* Object)
{
	int32 Index = static_cast<int32>(Slots.size());
	if (FreeSlots.empty())
	{
		Slots.emplace_back();
	}
	else
	{
		Index = FreeSlots.back();
		FreeSlots.pop_back();
	}
	FSlot& Slot = SlotAt(Index);
	Slot.Object = Object;
	++Slot.Serial;
	return Index;
}

void FObjectSlots::Free(int32 Index)
{
	SlotAt(Index).Object = nullptr;
	FreeSlots.push_back(Index);
}

int32 FObjectSlots::GetSerial(int32 Index)
{
	return SlotAt(Index).Serial;
}

UObject* FObjectSlots::Get(int32 Index)
{
	return SlotAt(Index).Object;
}

int32 FObjectSlots::Num()
{
	return static_cast<int32>(Slots.size());
}

int32 FObjectSlots::NumAlive()
{
	return static_cast<int32>(Slots.size() - FreeSlots.size());
}
