#include "Formats/CommentDocument.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Files/FileText.h"
#include "Formats/CleanText.h"
#include "Formats/CommentTraits.h"
#include "JsonMembers.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

#include <algorithm>
#include <array>
#include <unicode/ustring.h>

namespace Flitmark
{

namespace
{

constexpr std::string_view ListName = "datas";

constexpr std::size_t NumKeys = static_cast<std::size_t>(ECommentKey::Num);

constexpr std::array<std::string_view, NumKeys> KeyTexts = {
	"danmaku_id",		  "post_id",		 "user_id",		 "user_display_name", "danmaku_post_date",
	"danmaku_spawn_time", "danmaku_content", "danmaku_mode", "danmaku_font_size", "danmaku_font_color",
};

/** The same as the layer's JSON wants it. */
FStringView GetName(ECommentKey InKey)
{
	static const std::array<std::u16string, NumKeys> Names = []
	{
		std::array<std::u16string, NumKeys> Wide;
		std::ranges::transform(KeyTexts, Wide.begin(),
							   [](std::string_view InText) { return std::u16string(InText.begin(), InText.end()); });
		return Wide;
	}();
	return std::u16string_view(Names[static_cast<std::size_t>(InKey)]);
}

/** As the overlay narrows numbers: toward zero, those beyond 32 bits to the nearest that fits. */
int32 Narrow(double InNumber)
{
	if (!(InNumber > static_cast<double>(MIN_int32)))
	{
		return MIN_int32;
	}
	return InNumber < static_cast<double>(MAX_int32) ? static_cast<int32>(InNumber) : MAX_int32;
}

ECommentKind ToKind(int32 InMode)
{
	switch (InMode)
	{
	case 0:
		return ECommentKind::Scroll;
	case 1:
		return ECommentKind::Top;
	case 2:
		return ECommentKind::Bottom;
	default:
		return ECommentKind::Unknown;
	}
}

uint32 ToColor(const FString& InText)
{
	const FColor Color = FColor::FromHex(InText);
	return static_cast<uint32>(Color.R) << 24 | static_cast<uint32>(Color.G) << 16 | static_cast<uint32>(Color.B) << 8 |
		   Color.A;
}

/** Reads the keys of one comment and notes those that can't be read. */
class FEntryReader
{
public:
	FEntryReader(const FJsonObject& InObject, FCommentKeys& OutKeys)
		: Object(InObject)
		, Keys(OutKeys)
	{
	}

	int32 ReadNumber(ECommentKey InKey)
	{
		double Number = 0.0;
		Note(InKey, Object.TryGetNumberField(GetName(InKey), Number));
		return Narrow(Number);
	}
	int64 ReadTicks(ECommentKey InKey)
	{
		int64 Ticks = 0;
		Note(InKey, Object.TryGetNumberField(GetName(InKey), Ticks));
		return Ticks;
	}
	FString ReadText(ECommentKey InKey)
	{
		FString Text;
		Note(InKey, Object.TryGetStringField(GetName(InKey), Text));
		return Text;
	}
	void ReadDate(ECommentKey InKey)
	{
		FString Text;
		FDateTime Date;
		Note(InKey, Object.TryGetStringField(GetName(InKey), Text) && FDateTime::Parse(Text, Date));
	}

private:
	void Note(ECommentKey InKey, bool bRead)
	{
		if (!bRead)
		{
			uint16& Mask = Object.HasField(GetName(InKey)) ? Keys.Mistyped : Keys.Missing;
			Mask = static_cast<uint16>(Mask | 1u << static_cast<uint8>(InKey));
		}
	}

	const FJsonObject& Object;
	FCommentKeys& Keys;
};

FCommentEntry ReadEntry(const FJsonValue& InElement, std::u16string& OutTexts)
{
	FCommentEntry Entry;
	Entry.Keys.bIsObject = InElement.Type == EJson::Object;
	const TSharedPtr<FJsonObject> Object = InElement.AsObject();
	FEntryReader Reader(*Object, Entry.Keys);
	// The identifiers, the name and the date are only checked.
	Reader.ReadNumber(ECommentKey::DanmakuID);
	Reader.ReadNumber(ECommentKey::PostID);
	Reader.ReadNumber(ECommentKey::UserID);
	Reader.ReadText(ECommentKey::UserDisplayName);
	Reader.ReadDate(ECommentKey::PostDate);
	Entry.SpawnTicks = Reader.ReadTicks(ECommentKey::SpawnTime);
	const FString Text = Reader.ReadText(ECommentKey::Content);
	Entry.Kind = ToKind(Reader.ReadNumber(ECommentKey::Mode));
	Entry.FontSize = Reader.ReadNumber(ECommentKey::FontSize);
	Entry.Color = ToColor(Reader.ReadText(ECommentKey::FontColor));
	Entry.TextBegin = static_cast<uint32>(OutTexts.size());
	Entry.TextLength = static_cast<uint32>(Text.Len());
	OutTexts += Text.GetStd();
	return Entry;
}

/** What the JSON reader says, less its period. */
FDocumentFault MakeSyntaxFault(const TJsonReader<TCHAR>& InReader)
{
	std::string Reason = ToUtf8(InReader.GetErrorMessage());
	if (Reason.ends_with('.'))
	{
		Reason.pop_back();
	}
	return {"not JSON: " + Reason, InReader.GetLineNumber(), InReader.GetCharacterNumber()};
}

/** The elements of "datas"; none, and OutFault set, if the text has no such list. */
TArray<TSharedPtr<FJsonValue>> FindElements(const FString& InText, std::optional<FDocumentFault>& OutFault)
{
	TSharedPtr<FJsonValue> Root;
	const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<TCHAR>::Create(InText);
	if (!FJsonSerializer::Deserialize(Reader, Root))
	{
		OutFault = MakeSyntaxFault(*Reader);
		return {};
	}
	const TSharedPtr<FJsonValue> Comments = Root->AsObject()->TryGetField(FromUtf8(ListName));
	if (!Comments.IsValid())
	{
		OutFault = FDocumentFault{"it has no list of comments named \"datas\""};
		return {};
	}
	if (Comments->Type != EJson::Array)
	{
		OutFault = FDocumentFault{"its \"datas\" is not a list of comments"};
	}
	return Comments->AsArray();
}

/** Adds UTF-8 to UTF-16. */
void Append(std::string_view InText, std::u16string& OutTexts)
{
	// A byte never becomes more than one unit.
	const std::size_t Begin = OutTexts.size();
	OutTexts.resize(Begin + InText.size());
	int32 Length = 0;
	UErrorCode Error = U_ZERO_ERROR;
	u_strFromUTF8WithSub(OutTexts.data() + Begin, static_cast<int32>(InText.size()), &Length, InText.data(),
						 static_cast<int32>(InText.size()), 0xFFFD, nullptr, &Error);
	OutTexts.resize(Begin + static_cast<std::size_t>(U_SUCCESS(Error) ? Length : 0));
}

/** Names are looked up where users are blocked; the overlay does not show them. */
std::string ReadName(std::string_view InElement)
{
	const auto Value = FindJsonMember(InElement, ToText(ECommentKey::UserDisplayName));
	return Value && Value->starts_with('"') ? MakeCleanText(UnquoteJson(*Value)) : std::string();
}

} // namespace

std::string_view ToText(ECommentKey InKey)
{
	return KeyTexts[static_cast<std::size_t>(InKey)];
}

int64 FCommentEntry::GetSecond() const
{
	return Flitmark::GetSecond(SpawnTicks);
}

bool FCommentEntry::IsReached() const
{
	return Flitmark::IsReached(SpawnTicks);
}

FCommentDocument FCommentDocument::Read(const FString& InText)
{
	FCommentDocument Document;
	const TArray<TSharedPtr<FJsonValue>> Elements = FindElements(InText, Document.Fault);
	Document.Entries.reserve(static_cast<std::size_t>(Elements.Num()));
	for (const TSharedPtr<FJsonValue>& Element : Elements)
	{
		Document.Entries.push_back(ReadEntry(*Element, Document.Texts));
	}
	return Document;
}

FCommentDocument FCommentDocument::Of(std::span<const FServiceComment> InComments)
{
	FCommentDocument Document;
	Document.Entries.reserve(InComments.size());
	for (const FServiceComment& Comment : InComments)
	{
		const std::size_t Begin = Document.Texts.size();
		Append(Comment.Text, Document.Texts);
		Document.Entries.push_back({Comment.SpawnTicks, Comment.FontSize, Comment.Color, static_cast<uint32>(Begin),
									static_cast<uint32>(Document.Texts.size() - Begin), Comment.Kind, Comment.Keys});
	}
	return Document;
}

std::vector<FServiceComment> FCommentDocument::MakeComments(std::string_view InText) const
{
	std::vector<FServiceComment> Comments;
	Comments.reserve(Entries.size());
	const std::string_view List = FindJsonMember(InText, ListName).value_or(std::string_view());
	FJsonElements Elements(List);
	for (const FCommentEntry& Entry : Entries)
	{
		FServiceComment& Comment = Comments.emplace_back();
		Comment.Source = Elements.Next();
		MakeUtf8(Comment.Source);
		Comment.UserId = ReadJsonId(Comment.Source, ToText(ECommentKey::UserID));
		Comment.UserName = ReadName(Comment.Source);
		Comment.SpawnTicks = Entry.SpawnTicks;
		Comment.Text = MakeCleanText(ToUtf8(FString(FStringView(GetText(Entry)))));
		Comment.Kind = Entry.Kind;
		Comment.Keys = Entry.Keys;
		Comment.FontSize = Entry.FontSize;
		Comment.Color = Entry.Color;
	}
	return Comments;
}

std::string KeepElements(std::string_view InText, const std::vector<bool>& InKept)
{
	std::string Text = "{\"" + std::string(ListName) + "\":[";
	const char* Before = "\n";
	FJsonElements Elements(FindJsonMember(InText, ListName).value_or(std::string_view()));
	for (const bool bKept : InKept)
	{
		const std::string_view Element = Elements.Next();
		if (bKept)
		{
			Text.append(Before).append(Element);
			Before = ",\n";
		}
	}
	return Text + "\n]}\n";
}

int64 FindLastSecond(const FString& InText)
{
	std::optional<FDocumentFault> Fault;
	int64 Last = -1;
	for (const TSharedPtr<FJsonValue>& Element : FindElements(InText, Fault))
	{
		int64 Ticks = 0;
		Element->AsObject()->TryGetNumberField(GetName(ECommentKey::SpawnTime), Ticks);
		if (IsReached(Ticks))
		{
			Last = std::max(Last, GetSecond(Ticks));
		}
	}
	return Last;
}

} // namespace Flitmark
