#pragma once

#include "CoreTypes.h"

#include <cstddef>
#include <utility>
#include <vector>

/**
 * A hash map. A key type provides its GetTypeHash. The elements lie in one block, indexed by a small table, so a lookup
 * among thousands stays in the cache. Adding and removing may move every element.
 */
template <class KeyType, class ValueType>
class TMap
{
public:
	int32 Num() const { return static_cast<int32>(Elements.size()); }
	bool IsEmpty() const { return Elements.empty(); }
	ValueType* Find(const KeyType& Key)
	{
		const uint32 Place = Places.empty() ? 0 : Places[FindPlace(Key)];
		return Place == 0 ? nullptr : &Elements[Place - 1].Value;
	}
	const ValueType* Find(const KeyType& Key) const { return const_cast<TMap*>(this)->Find(Key); }
	bool Contains(const KeyType& Key) const { return Find(Key) != nullptr; }
	ValueType& FindOrAdd(const KeyType& Key)
	{
		if (ValueType* Found = Find(Key))
		{
			return *Found;
		}
		Elements.push_back({Key, ValueType()});
		if (Elements.size() * 2 > Places.size())
		{
			FillPlaces(Places.empty() ? 16 : Places.size() * 2);
		}
		else
		{
			Places[FindPlace(Key)] = static_cast<uint32>(Elements.size());
		}
		return Elements.back().Value;
	}
	ValueType& Add(const KeyType& Key, ValueType Value) { return FindOrAdd(Key) = std::move(Value); }
	/** Returns how many were removed; the cost grows with the number of elements. */
	int32 Remove(const KeyType& Key)
	{
		const uint32 Place = Places.empty() ? 0 : Places[FindPlace(Key)];
		if (Place != 0)
		{
			Elements.erase(Elements.begin() + static_cast<std::ptrdiff_t>(Place - 1));
			FillPlaces(Places.size());
		}
		return Place != 0 ? 1 : 0;
	}
	/** Removes all entries and frees the storage. */
	void Empty()
	{
		std::vector<FElement>().swap(Elements);
		std::vector<uint32>().swap(Places);
	}

private:
	struct FElement
	{
		KeyType Key;
		ValueType Value;
	};

	/** The key's position in the table, or where it would go. */
	std::size_t FindPlace(const KeyType& Key) const
	{
		const std::size_t Mask = Places.size() - 1;
		std::size_t Index = GetTypeHash(Key) & Mask;
		while (Places[Index] != 0 && !(Elements[Places[Index] - 1].Key == Key))
		{
			Index = (Index + 1) & Mask;
		}
		return Index;
	}
	void FillPlaces(std::size_t Count)
	{
		Places.assign(Count, 0);
		for (std::size_t Index = 0; Index < Elements.size(); ++Index)
		{
			Places[FindPlace(Elements[Index].Key)] = static_cast<uint32>(Index + 1);
		}
	}

	std::vector<FElement> Elements;
	/**
	 * By hash: the element's number, from 1; 0 for none. The size is a power of two, with at most half of the entries
	 * in use.
	 */
	std::vector<uint32> Places;
};
