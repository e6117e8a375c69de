#pragma once

#include "CoreTypes.h"

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

/** A list in one block: a thin wrapper around the standard vector. */
template <class ElementType>
class TArray
{
public:
	TArray() = default;
	TArray(std::initializer_list<ElementType> InElements)
		: Data(InElements)
	{
	}

	int32 Num() const { return static_cast<int32>(Data.size()); }
	bool IsEmpty() const { return Data.empty(); }
	bool IsValidIndex(int32 Index) const { return Index >= 0 && Index < Num(); }
	ElementType* GetData() { return Data.data(); }
	const ElementType* GetData() const { return Data.data(); }
	ElementType& operator[](int32 Index) { return Data[static_cast<std::size_t>(Index)]; }
	const ElementType& operator[](int32 Index) const { return Data[static_cast<std::size_t>(Index)]; }
	ElementType& Last() { return Data.back(); }
	const ElementType& Last() const { return Data.back(); }

	int32 Add(const ElementType& Item)
	{
		if (IsFull())
		{
			// The item may be one of the array's own.
			ElementType Copy(Item);
			Grow();
			Data.push_back(std::move(Copy));
			return Num() - 1;
		}
		Data.push_back(Item);
		return Num() - 1;
	}
	int32 Add(ElementType&& Item)
	{
		if (IsFull())
		{
			ElementType Moved(std::move(Item));
			Grow();
			Data.push_back(std::move(Moved));
			return Num() - 1;
		}
		Data.push_back(std::move(Item));
		return Num() - 1;
	}
	template <class... ArgumentTypes>
	int32 Emplace(ArgumentTypes&&... Arguments)
	{
		Data.emplace_back(std::forward<ArgumentTypes>(Arguments)...);
		return Num() - 1;
	}
	void Append(const TArray& Other) { Data.insert(Data.end(), Other.Data.begin(), Other.Data.end()); }
	void Reserve(int32 Count) { Data.reserve(static_cast<std::size_t>(Count)); }
	void SetNum(int32 Count) { Data.resize(static_cast<std::size_t>(Count)); }

	void RemoveAt(int32 Index) { Data.erase(Data.begin() + Index); }
	/** Removes every entry equal to the item, keeping the order of the rest; returns how many. */
	int32 Remove(const ElementType& Item) { return static_cast<int32>(std::erase(Data, Item)); }
	bool Contains(const ElementType& Item) const { return std::ranges::find(Data, Item) != Data.end(); }

	/** Removes all entries and frees the storage. */
	void Empty() { std::vector<ElementType>().swap(Data); }
	/** Removes all entries and keeps the storage. */
	void Reset() { Data.clear(); }

	auto begin() { return Data.begin(); }
	auto end() { return Data.end(); }
	auto begin() const { return Data.begin(); }
	auto end() const { return Data.end(); }

private:
	bool IsFull() const { return Data.size() == Data.capacity(); }
	/** Grows as the engine does: to 4 first, then by 3/8 plus 16, so a list of a few dozen moves only once or twice. */
	void Grow()
	{
		const std::size_t Needed = Data.size() + 1;
		Data.reserve(Data.empty() ? 4 : Needed + 3 * Needed / 8 + 16);
	}

	std::vector<ElementType> Data;
};
