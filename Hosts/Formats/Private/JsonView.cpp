#include "JsonView.h"

#include <rapidjson/document.h>

namespace Flitmark
{

namespace
{

const rapidjson::Value& Get(const void* InValue)
{
	static const rapidjson::Value Nothing;
	return InValue == nullptr ? Nothing : *static_cast<const rapidjson::Value*>(InValue);
}

} // namespace

bool FJsonView::IsThere() const
{
	return !Get(Value).IsNull();
}

bool FJsonView::IsObject() const
{
	return Get(Value).IsObject();
}

bool FJsonView::IsList() const
{
	return Get(Value).IsArray();
}

bool FJsonView::IsTrue() const
{
	return Get(Value).IsTrue();
}

std::string_view FJsonView::GetText() const
{
	// Numbers come as strings, too.
	const rapidjson::Value& Text = Get(Value);
	return Text.IsString() ? std::string_view(Text.GetString(), Text.GetStringLength()) : std::string_view();
}

FJsonView FJsonView::operator[](std::string_view InName) const
{
	const rapidjson::Value& Object = Get(Value);
	if (!Object.IsObject())
	{
		return {};
	}
	for (const auto& Member : Object.GetObject())
	{
		if (std::string_view(Member.name.GetString(), Member.name.GetStringLength()) == InName)
		{
			return FJsonView(&Member.value);
		}
	}
	return {};
}

std::size_t FJsonView::Num() const
{
	const rapidjson::Value& List = Get(Value);
	return List.IsArray() ? List.Size() : 0;
}

FJsonView FJsonView::At(std::size_t InIndex) const
{
	return InIndex < Num() ? FJsonView(&Get(Value)[static_cast<rapidjson::SizeType>(InIndex)]) : FJsonView();
}

} // namespace Flitmark
