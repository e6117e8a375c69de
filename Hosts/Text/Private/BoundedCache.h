#pragma once

#include <array>
#include <cstddef>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace Flitmark
{

/**
 * A cache that drops what was not used recently. Each shard has a young and an old half; what is found in the old
 * half moves to the young one; when that is full, it becomes the old one, whose rest is dropped. There is no promise
 * when an entry goes: users must get the same result without the cache. Thread-safe.
 *
 * HashType and EqualType may be transparent, so that a lookup need not build a key. More shards mean less waiting, but
 * an entry cannot be larger than half a shard.
 */
template <typename KeyType, typename ValueType, typename HashType, typename EqualType, std::size_t InShardCount>
class TBoundedCache
{
public:
	/** InBytes: limit on the sum of the sizes passed to Add. */
	explicit TBoundedCache(std::size_t InBytes)
		: HalfShardBytes(InBytes / (2 * InShardCount))
	{
	}

	template <typename LookupType>
	bool Find(const LookupType& InKey, ValueType& OutValue)
	{
		FMap Dropped;
		FShard& Shard = Shards[PickShard(HashType()(InKey))];
		const std::lock_guard Lock(Shard.Lock);
		if (const auto Found = Shard.Young.find(InKey); Found != Shard.Young.end())
		{
			OutValue = Found->second.Value;
			return true;
		}
		const auto Found = Shard.Old.find(InKey);
		if (Found == Shard.Old.end())
		{
			return false;
		}
		OutValue = Found->second.Value;
		const std::size_t Bytes = Found->second.Bytes;
		typename FMap::node_type Node = Shard.Old.extract(Found);
		Shard.OldBytes -= Bytes;
		Shard.MakeRoom(Bytes, HalfShardBytes, Dropped);
		Shard.Young.insert(std::move(Node));
		Shard.YoungBytes += Bytes;
		return true;
	}

	/** InBytes: size of the entry, including its key. An entry larger than half a shard is not kept. */
	void Add(KeyType InKey, ValueType InValue, std::size_t InBytes)
	{
		if (InBytes > HalfShardBytes)
		{
			return;
		}
		FMap Dropped;
		FShard& Shard = Shards[PickShard(HashType()(InKey))];
		const std::lock_guard Lock(Shard.Lock);
		Shard.MakeRoom(InBytes, HalfShardBytes, Dropped);
		if (Shard.Young.try_emplace(std::move(InKey), FEntry{std::move(InValue), InBytes}).second)
		{
			Shard.YoungBytes += InBytes;
		}
	}

	/** Bytes of all entries, as passed to Add. */
	std::size_t CountBytes()
	{
		std::size_t Sum = 0;
		for (FShard& Shard : Shards)
		{
			const std::lock_guard Lock(Shard.Lock);
			Sum += Shard.YoungBytes + Shard.OldBytes;
		}
		return Sum;
	}

private:
	struct FEntry
	{
		ValueType Value;
		std::size_t Bytes = 0;
	};
	using FMap = std::unordered_map<KeyType, FEntry, HashType, EqualType>;

	struct alignas(64) FShard
	{
		std::mutex Lock;
		FMap Young;
		FMap Old;
		std::size_t YoungBytes = 0;
		std::size_t OldBytes = 0;

		/**
		 * Makes the young half the old one if it cannot take InBytes more. The old one goes to OutDropped, to be freed
		 * after the lock is released: freeing thousands of entries would make others wait.
		 */
		void MakeRoom(std::size_t InBytes, std::size_t InBound, FMap& OutDropped)
		{
			if (YoungBytes + InBytes > InBound)
			{
				OutDropped = std::move(Old);
				Old = std::move(Young);
				Young = FMap();
				Young.reserve(Old.size());
				OldBytes = YoungBytes;
				YoungBytes = 0;
			}
		}
	};

	/** The maps use the low bits of the same hash. */
	static std::size_t PickShard(std::size_t InHash) { return (InHash >> 40U) % InShardCount; }

	std::size_t HalfShardBytes;
	std::array<FShard, InShardCount> Shards;
};

} // namespace Flitmark
