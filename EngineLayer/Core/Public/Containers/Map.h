#pragma once

#include "CoreTypes.h"

#include <unordered_map>
#include <utility>

/** Keys to values by hash: a thin name over the standard one. A key type brings its GetTypeHash. */
template <class KeyType, class ValueType>
class TMap
{
public:
	int32 Num() const { return static_cast<int32>(Data.size()); }
	bool IsEmpty() const { return Data.empty(); }
	ValueType* Find(const KeyType& Key)
	{
		const auto Found = Data.find(Key);
		return Found == Data.end() ? nullptr : &Found->second;
	}
	const ValueType* Find(const KeyType& Key) const { return const_cast<TMap*>(this)->Find(Key); }
	bool Contains(const KeyType& Key) const { return Data.contains(Key); }
	ValueType& FindOrAdd(const KeyType& Key) { return Data[Key]; }
	ValueType& Add(const KeyType& Key, ValueType Value) { return Data.insert_or_assign(Key, std::move(Value)).first->second; }
	int32 Remove(const KeyType& Key) { return static_cast<int32>(Data.erase(Key)); }
	/** Removes all and gives the storage back. */
	void Empty() { std::unordered_map<KeyType, ValueType, FHash>().swap(Data); }

private:
	struct FHash
	{
		std::size_t operator()(const KeyType& Key) const { return GetTypeHash(Key); }
	};

	std::unordered_map<KeyType, ValueType, FHash> Data;
};
