#include "Formats/CommentChange.h"

#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <optional>
#include <string_view>

namespace Flitmark
{

namespace
{

/** Whether the overlay takes both for the same key: it does not mind the case. */
bool IsSameKey(std::string_view InKey, std::string_view InOther)
{
	const auto Lower = [](char InLetter)
	{
		return InLetter >= 'A' && InLetter <= 'Z' ? static_cast<char>(InLetter - 'A' + 'a') : InLetter;
	};
	for (std::size_t Index = 0; InKey.size() == InOther.size() && Index < InKey.size(); ++Index)
	{
		if (Lower(InKey[Index]) != Lower(InOther[Index]))
		{
			return false;
		}
	}
	return InKey.size() == InOther.size();
}

/** Copies a JSON object as it is read, but for one of its own members. */
class FMemberReplacer : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, FMemberReplacer>
{
public:
	using FBuffer = rapidjson::StringBuffer;
	using FWriter = rapidjson::Writer<FBuffer>;

	/** InValue: JSON. */
	FMemberReplacer(std::string_view InKey, std::string_view InValue, FBuffer& OutBuffer)
		: MemberKey(InKey)
		, Value(InValue)
		, Writer(OutBuffer)
	{
	}

	bool Null() { return IsSkipped() || Writer.Null(); }
	bool Bool(bool bInValue) { return IsSkipped() || Writer.Bool(bInValue); }
	bool RawNumber(const char* InText, rapidjson::SizeType InLength, bool)
	{
		return IsSkipped() || Writer.RawValue(InText, InLength, rapidjson::kNumberType);
	}
	bool String(const char* InText, rapidjson::SizeType InLength, bool)
	{
		return IsSkipped() || Writer.String(InText, InLength);
	}
	bool Key(const char* InText, rapidjson::SizeType InLength, bool)
	{
		if (Depth == 1)
		{
			bSkipping = IsSameKey({InText, InLength}, MemberKey);
			if (bSkipping && bWritten)
			{
				return true;
			}
			return Writer.Key(InText, InLength) && (!bSkipping || WriteValue());
		}
		return bSkipping || Writer.Key(InText, InLength);
	}
	bool StartObject() { return Begin() && (bSkipping || Writer.StartObject()); }
	bool StartArray() { return Begin() && (bSkipping || Writer.StartArray()); }
	bool EndArray(rapidjson::SizeType)
	{
		const bool bSkipped = bSkipping;
		End();
		return bSkipped || Writer.EndArray();
	}
	bool EndObject(rapidjson::SizeType)
	{
		const bool bSkipped = bSkipping && Depth > 1;
		if (Depth == 1 && !bWritten &&
			!(Writer.Key(MemberKey.data(), static_cast<unsigned>(MemberKey.size())) && WriteValue()))
		{
			return false;
		}
		End();
		return bSkipped || Writer.EndObject();
	}

private:
	/** Whether the value that is read now belongs to the member, or stands outside of any object. */
	bool IsSkipped() const { return bSkipping || Depth == 0; }
	bool Begin()
	{
		++Depth;
		return true;
	}
	void End() { --Depth; }
	bool WriteValue()
	{
		bWritten = true;
		return Writer.RawValue(Value.data(), Value.size(), rapidjson::kStringType);
	}

	const std::string_view MemberKey;
	const std::string_view Value;
	FWriter Writer;
	int Depth = 0;
	bool bSkipping = false;
	bool bWritten = false;
};

/** Empty where the source is no JSON object. */
std::string ReplaceMember(const std::string& InSource, std::string_view InKey, std::string_view InValue)
{
	constexpr unsigned Flags = rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseIterativeFlag;
	rapidjson::StringBuffer Buffer;
	FMemberReplacer Replacer(InKey, InValue, Buffer);
	rapidjson::StringStream Stream(InSource.c_str());
	const bool bRead = !rapidjson::Reader().Parse<Flags>(Stream, Replacer).IsError();
	const std::string Result(Buffer.GetString(), Buffer.GetSize());
	return bRead && Result.starts_with('{') ? Result : std::string();
}

std::string QuoteJson(const std::string& InText)
{
	rapidjson::StringBuffer Buffer;
	rapidjson::Writer<rapidjson::StringBuffer> Writer(Buffer);
	Writer.String(InText.data(), static_cast<rapidjson::SizeType>(InText.size()));
	return {Buffer.GetString(), Buffer.GetSize()};
}

void Replace(FServiceComment& InOutComment, std::string_view InKey, std::string_view InValue)
{
	if (!InOutComment.Source.empty())
	{
		InOutComment.Source = ReplaceMember(InOutComment.Source, InKey, InValue);
	}
}

} // namespace

void SetText(FServiceComment& InOutComment, std::string InText)
{
	InOutComment.Text = std::move(InText);
	Replace(InOutComment, "danmaku_content", QuoteJson(InOutComment.Text));
}

void SetSpawnTicks(FServiceComment& InOutComment, int64 InTicks)
{
	InOutComment.SpawnTicks = InTicks;
	Replace(InOutComment, "danmaku_spawn_time", std::to_string(InTicks));
}

} // namespace Flitmark
