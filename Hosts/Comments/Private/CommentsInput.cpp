#include "Comments/CommentsInput.h"

#include "Files/ByteSource.h"
#include "Files/FileText.h"
#include "Filtering/CommentOrder.h"
#include "Formats/CleanText.h"
#include "Formats/CommentDocumentWriter.h"
#include "LaneFit.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <memory>

namespace Flitmark
{

namespace
{

bool IsOwn(const FCommentFormat* InFormat)
{
	return InFormat == &OwnDocumentFormat || InFormat == nullptr;
}

bool IsJson(const FCommentFormat* InFormat)
{
	return !IsOwn(InFormat) && InFormat->Syntax == EFormatSyntax::Json;
}

/** Whether a text has the name of our document's list somewhere, in any case: only then can it be one. */
bool NamesList(std::string_view InText)
{
	constexpr std::string_view Name = "datas";
	const auto Same = [](char InLetter, char InOther)
	{
		return (InLetter | 0x20) == InOther;
	};
	// Its rarest letter is looked for first.
	constexpr std::size_t Rarest = Name.find('t');
	for (const char Letter : {'t', 'T'})
	{
		for (std::size_t Place = InText.find(Letter, Rarest); Place != std::string_view::npos;
			 Place = InText.find(Letter, Place + 1))
		{
			if (std::ranges::equal(InText.substr(Place - Rarest, Name.size()), Name, Same))
			{
				return true;
			}
		}
	}
	return false;
}

struct FFileLook
{
	const FCommentFormat* Format = nullptr;
	/** Whether it could be our own document, whatever its beginning looks like. */
	bool bMayBeOwn = true;
};

/** What a plain file looks like; nothing for what can be read only once, or not at all. */
std::optional<FFileLook> LookAtFile(const std::string& InPath)
{
	std::error_code Ignored;
	if (!std::filesystem::is_regular_file(InPath, Ignored))
	{
		return std::nullopt;
	}
	std::string Error;
	const std::unique_ptr<FFileSource> File = FFileSource::Open(InPath, Error);
	if (!File)
	{
		return std::nullopt;
	}
	std::string Seen;
	const auto ReadMore = [&File, &Seen]
	{
		const std::string More = File->ReadUpTo(DetectionSize);
		Seen += More;
		return !More.empty();
	};
	bool bMore = ReadMore();
	FFileLook Look;
	Look.Format = DetectFormat(Seen);
	Look.bMayBeOwn = IsOwn(Look.Format);
	// The end of one piece and the beginning of the next are looked at together.
	constexpr std::size_t Overlap = 8;
	while (IsJson(Look.Format) && !Look.bMayBeOwn && bMore)
	{
		Look.bMayBeOwn = NamesList(Seen);
		Seen.erase(0, Seen.size() - std::min(Overlap, Seen.size()));
		bMore = ReadMore();
	}
	return File->GetError().empty() ? std::optional(Look) : std::nullopt;
}

/** The format of a whole text. What the overlay takes for a document is one, whatever else there is in it. */
const FCommentFormat* DetectWhole(FCommentsInput& InOutInput)
{
	const std::string_view Bytes = *InOutInput.Bytes;
	const FCommentFormat* const Format = DetectFormat(Bytes.substr(0, DetectionSize));
	std::string Ignored;
	if (!IsJson(Format) || !NamesList(Bytes))
	{
		return Format;
	}
	if (InOutInput.ReadDocument(Ignored))
	{
		return &OwnDocumentFormat;
	}
	InOutInput.Text.reset();
	return Format;
}

/** Reads another format's comments: from the bytes where there are some, piece by piece from the file otherwise. */
bool ImportOther(FCommentsInput& InOutInput, std::string& OutError)
{
	FImportResult Result;
	bool bRead = false;
	if (InOutInput.Bytes)
	{
		FMemorySource Source(*InOutInput.Bytes);
		bRead = ImportComments(Source, Result, OutError);
		OutError = bRead ? std::string() : InOutInput.Report.Path + ": " + OutError;
	}
	else
	{
		bRead = ImportComments(InOutInput.Report.Path, Result, OutError);
	}
	InOutInput.Report.bImported = true;
	InOutInput.Report.Import = std::move(Result.Report);
	InOutInput.Comments = std::move(Result.Comments);
	return bRead;
}

/** Filters comments that were read, and makes what the overlay is handed. */
bool MakeFile(FCommentsInput InInput, const FCommentsOptions& InOptions, FCommentsFile& OutFile, std::string& OutError)
{
	constexpr std::size_t MaxSize = std::numeric_limits<int32>::max();
	if (InOptions.Filter != nullptr)
	{
		OutFile.Rules = InOptions.Filter->Apply(InInput.Comments);
	}
	std::size_t Size = 0;
	for (const FServiceComment& Comment : InInput.Comments)
	{
		Size += Comment.Text.size();
	}
	std::string Text;
	if (InOptions.bWithText && Size <= MaxSize)
	{
		Text = WriteCommentDocument(InInput.Comments);
		Size = Text.size();
	}
	if (Size > MaxSize)
	{
		OutError = InInput.Report.Path +
				   ": has more than 2 GiB of comments, which is more than can be shown; leave some "
				   "out, as with --max-per-second";
		return false;
	}
	OutFile.Document = FCommentDocument::Of(InInput.Comments);
	InInput.Comments = {};
	OutFile.Text = FromUtf8(Text);
	OutFile.Report = std::move(InInput.Report);
	return true;
}

} // namespace

std::optional<FCommentsInput> FCommentsInput::Read(const std::string& InPath, const FKindPolicy& InKinds,
												   std::string& OutError)
{
	FCommentsInput Input;
	Input.Report.Path = InPath;
	const std::optional<FFileLook> Look = LookAtFile(InPath);
	Input.Report.Import.Format = Look ? Look->Format : nullptr;
	if (!Look || Look->bMayBeOwn)
	{
		Input.Bytes = LoadBytes(InPath, OutError);
		if (!Input.Bytes)
		{
			return std::nullopt;
		}
		Input.Report.Import.Format = DetectWhole(Input);
	}
	if (IsOwn(Input.Report.Import.Format))
	{
		return Input;
	}
	if (!ImportOther(Input, OutError))
	{
		return std::nullopt;
	}
	Input.Bytes.reset();
	OrderByTime(Input.Comments);
	Input.Report.Kinds = ApplyKindPolicy(Input.Comments, InKinds);
	Input.Report.NumFitted = FitIntoLanes(Input.Comments);
	return Input;
}

bool FCommentsInput::ReadDocument(std::string& OutError, bool bInKeepBytes)
{
	if (!Text)
	{
		Text = FromUtf8(*Bytes);
		if (!bInKeepBytes)
		{
			// As large as all that follows.
			Bytes.emplace().shrink_to_fit();
		}
		Document = FCommentDocument::Read(*Text);
	}
	if (Document.GetFault())
	{
		OutError = DescribeFault(Report.Path, *Text, *Document.GetFault());
	}
	return !Document.GetFault();
}

bool FCommentsInput::ImportOwn(std::string& OutError)
{
	if (!ReadDocument(OutError))
	{
		return false;
	}
	if (!IsUtf8(*Bytes))
	{
		Bytes = ToUtf8(*Text);
	}
	Text.reset();
	Comments = Document.MakeComments(*Bytes);
	Document = {};
	Report.bImported = true;
	Report.Import.Format = &OwnDocumentFormat;
	Report.Import.NumEntries = Comments.size();
	Report.Import.NumRead = Comments.size();
	return true;
}

std::vector<std::string> FCommentsFile::MakeNotes() const
{
	std::vector<std::string> Notes = DescribeLosses(Report);
	for (const FFilterRule& Rule : Rules)
	{
		Notes.push_back(DescribeRule(Rule));
	}
	return Notes;
}

std::string DescribeFault(const std::string& InPath, const FString& InText, const FDocumentFault& InFault)
{
	const std::u16string& Units = InText.GetStd();
	const std::size_t First = Units.find_first_not_of(u" \t\r\n");
	if (First != std::u16string::npos && Units[First] != u'{' && Units[First] != u'[')
	{
		return InPath + ": is in no known format of comments; known are our own documents, XML lists, JSON lists, "
						"objects and lines, and binary messages: Docs/formats.md describes them";
	}
	if (InFault.Line > 0)
	{
		return InPath + ":" + std::to_string(InFault.Line) + ":" + std::to_string(InFault.Column) + ": " +
			   InFault.Reason;
	}
	return InPath + ": " + InFault.Reason +
		   "; a comment document is a JSON object like {\"datas\": [{\"danmaku_content\": \"Hello\", ...}, ...]}, and "
		   "Docs/formats.md describes the other formats that are known";
}

std::optional<FCommentsFile> LoadComments(const std::string& InPath, const FCommentsOptions& InOptions,
										  std::string& OutError, std::optional<FDocumentFault>* OutFault)
{
	std::optional<FCommentsInput> Input = FCommentsInput::Read(InPath, InOptions.Kinds, OutError);
	if (!Input)
	{
		return std::nullopt;
	}
	FCommentsFile File;
	if (Input->Bytes)
	{
		const bool bFiltered = InOptions.Filter != nullptr;
		if (bFiltered ? !Input->ImportOwn(OutError) : !Input->ReadDocument(OutError, false))
		{
			if (OutFault != nullptr)
			{
				*OutFault = Input->Document.GetFault();
			}
			return std::nullopt;
		}
		if (!bFiltered)
		{
			File.Text = std::move(*Input->Text);
			File.Document = std::move(Input->Document);
			File.Report = std::move(Input->Report);
			return File;
		}
	}
	return MakeFile(std::move(*Input), InOptions, File, OutError) ? std::optional(std::move(File)) : std::nullopt;
}

std::optional<FCommentsFile> LoadAnyText(const std::string& InPath, const FCommentsOptions& InOptions,
										 std::string& OutError)
{
	std::optional<FCommentsInput> Input = FCommentsInput::Read(InPath, InOptions.Kinds, OutError);
	if (!Input)
	{
		return std::nullopt;
	}
	FCommentsFile File;
	std::string Ignored;
	if (Input->Bytes && (InOptions.Filter == nullptr || !Input->ImportOwn(Ignored)))
	{
		File.Text = Input->Text ? std::move(*Input->Text) : FromUtf8(*Input->Bytes);
		File.Report = std::move(Input->Report);
		return File;
	}
	return MakeFile(std::move(*Input), InOptions, File, OutError) ? std::optional(std::move(File)) : std::nullopt;
}

} // namespace Flitmark
