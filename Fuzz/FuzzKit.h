#pragma once

#include "CoreTypes.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <string_view>
#include <type_traits>

namespace Flitmark
{

/** Stops the program with a message where something that always holds does not. */
void Require(bool bInHolds, const char* InWhat);

inline std::string_view ToBytes(const uint8* InData, std::size_t InSize)
{
	return {reinterpret_cast<const char*>(InData), InSize};
}

/** Takes values off the front of an input; zeros once nothing is left. */
class FFuzzBytes
{
public:
	FFuzzBytes(const uint8* InData, std::size_t InSize)
		: Rest(InData, InSize)
	{
	}

	template <typename T>
	T Take()
	{
		static_assert(std::is_trivially_copyable_v<T>);
		T Value{};
		const std::size_t Size = std::min(sizeof(T), Rest.size());
		if (Size > 0)
		{
			std::memcpy(&Value, Rest.data(), Size);
		}
		Rest = Rest.subspan(Size);
		return Value;
	}

	/** A byte, spread evenly over a range. */
	double TakeBetween(double InLeast, double InMost) { return InLeast + (InMost - InLeast) * Take<uint8>() / 255.0; }

	/** A byte's choice. */
	template <typename T, std::size_t Num>
	T TakeOne(const T (&InChoices)[Num])
	{
		return InChoices[Take<uint8>() % Num];
	}

	std::span<const uint8> GetRest() const { return Rest; }

private:
	std::span<const uint8> Rest;
};

/**
 * Watches, for its lifetime, how much the program's memory grows. One at a time. Counts what the program asked for, not
 * what the sanitizers keep of it.
 */
class FHeapWatch
{
public:
	FHeapWatch();
	~FHeapWatch();
	FHeapWatch(const FHeapWatch&) = delete;
	FHeapWatch& operator=(const FHeapWatch&) = delete;

	/** The most bytes in use beyond those when it began. */
	int64 GetPeak() const;
};

} // namespace Flitmark
