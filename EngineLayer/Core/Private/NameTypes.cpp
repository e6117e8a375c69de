#include "UObject/NameTypes.h"

#include <deque>
#include <mutex>
#include <unordered_map>

namespace
{

/** Every text ever used as a name; never shrinks. */
struct FNameTable
{
	std::mutex Mutex;
	std::deque<FString> Texts{FString(TEXT("None"))};
	/** From uppercase text to its index. */
	std::unordered_map<std::u16string, int32> Places{{u"NONE", 0}};
};

FNameTable& GetTable()
{
	static FNameTable Table;
	return Table;
}

} // namespace

FName::FName(const TCHAR* InText)
	: FName(FStringView(InText))
{
}

FName::FName(FStringView InText)
{
	if (InText.empty())
	{
		return;
	}
	FNameTable& Table = GetTable();
	const std::scoped_lock Lock(Table.Mutex);
	const auto [Found, bAdded] =
		Table.Places.try_emplace(FString(InText).ToUpper().GetStd(), static_cast<int32>(Table.Texts.size()));
	if (bAdded)
	{
		Table.Texts.emplace_back(InText);
	}
	Index = Found->second;
}

FString FName::ToString() const
{
	FNameTable& Table = GetTable();
	const std::scoped_lock Lock(Table.Mutex);
	FString Result = Table.Texts[static_cast<std::size_t>(Index)];
	if (Number > 0)
	{
		Result += TEXT("_");
		Result += FString::FromInt(Number - 1);
	}
	return Result;
}
