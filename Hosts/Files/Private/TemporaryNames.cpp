#include "Files/TemporaryNames.h"

#include <array>
#include <atomic>
#include <climits>
#include <cstring>
#include <unistd.h>
#include <utility>

namespace Flitmark
{

namespace
{

enum class EPlace
{
	Free,
	/** Being written; not for handlers. */
	Taken,
	Named,
};

struct FPlace
{
	std::atomic<EPlace> State = EPlace::Free;
	std::array<char, PATH_MAX> Name{};
};

static_assert(std::atomic<EPlace>::is_always_lock_free, "a signal handler may not lock");

/** More than any command writes at once. */
constexpr int NumPlaces = 8;
std::array<FPlace, NumPlaces> Places;

} // namespace

FTemporaryName::FTemporaryName(std::string InPath)
	: Path(std::move(InPath))
{
	for (int Index = 0; Index < NumPlaces && Place < 0 && Path.size() < PATH_MAX; ++Index)
	{
		FPlace& Each = Places[static_cast<std::size_t>(Index)];
		EPlace Expected = EPlace::Free;
		if (Each.State.compare_exchange_strong(Expected, EPlace::Taken))
		{
			std::memcpy(Each.Name.data(), Path.c_str(), Path.size() + 1);
			Each.State = EPlace::Named;
			Place = Index;
		}
	}
}

FTemporaryName::~FTemporaryName()
{
	if (Place >= 0)
	{
		Places[static_cast<std::size_t>(Place)].State = EPlace::Free;
	}
}

void FTemporaryName::RemoveAll()
{
	for (FPlace& Each : Places)
	{
		if (Each.State == EPlace::Named)
		{
			::unlink(Each.Name.data());
		}
	}
}

} // namespace Flitmark
