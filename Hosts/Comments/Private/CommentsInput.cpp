#include "Comments/CommentsInput.h"

#include "Comments/CrowdBound.h"
#include "Files/FileText.h"
#include "Filtering/CommentOrder.h"
#include "Formats/CleanText.h"
#include "Formats/CommentDocumentWriter.h"
#include "Formats/CommentSource.h"
#include "Formats/ForeignFile.h"
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

/** Whether a text may name our document's list, also in JSON's escapes. */
bool MayNameList(std::string_view InText)
{
	return NamesList(InText) || InText.find("\\u00") != std::string_view::npos;
}

/** Whether a JSON file could be our own document, whatever its beginning looks like. Reads a plain file to its end. */
bool MayBeOwn(FCommentSource& InOutSource, bool bInPlain)
{
	const bool bOwn = IsOwn(InOutSource.GetFormat());
	if (!bOwn && !IsJson(InOutSource.GetFormat()))
	{
		return false;
	}
	using namespace std::string_view_literals;
	// The name is looked for in UTF-8 only: the marks of other encodings have these bytes, and so have their letters.
	const std::string_view Head = InOutSource.GetHead();
	const bool bUtf8 = Head.substr(0, 4).find_first_of("\0\xFE\xFF"sv) == std::string_view::npos;
	if (!bUtf8 || (bOwn && NamesList(Head)))
	{
		return true;
	}
	if (bOwn && Head.find('\0') != std::string_view::npos)
	{
		return false;
	}
	// What is no plain file can be read only once.
	if (!bInPlain)
	{
		return true;
	}
	// The end of one piece and the beginning of the next are looked at together.
	constexpr std::size_t Overlap = 8;
	std::string Seen;
	while (true)
	{
		const std::string More = InOutSource.ReadUpTo(DetectionSize);
		Seen += More;
		if (More.empty() || (bOwn ? MayNameList(Seen) : NamesList(Seen)))
		{
			return !More.empty();
		}
		Seen.erase(0, Seen.size() - std::min(Overlap, Seen.size()));
	}
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
bool ImportOther(FCommentsInput& InOutInput, const std::string& InPath, std::string& OutError)
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
		bRead = ImportComments(InPath, Result, OutError);
	}
	InOutInput.Report.bImported = true;
	InOutInput.Report.Import = std::move(Result.Report);
	InOutInput.Comments = std::move(Result.Comments);
	return bRead;
}

/** All bytes of a source; false with OutError set where they cannot be read or unpacked. */
bool LoadWhole(FCommentSource& InOutSource, FCommentsInput& InOutInput, std::string& OutError)
{
	InOutInput.Bytes = LoadBytes(InOutSource, InOutInput.Report.Path, OutError);
	if (InOutInput.Bytes && !InOutSource.GetDamage().empty())
	{
		OutError = InOutInput.Report.Path + ": " + InOutSource.GetDamage();
		InOutInput.Bytes.reset();
	}
	return InOutInput.Bytes.has_value();
}

/** Reads what may be our own document as a whole, and refuses by its beginning what can be no comments at all. */
bool ReadBytes(FCommentsInput& InOutInput, const std::string& InPath, std::string& OutError)
{
	std::error_code Ignored;
	const bool bPlain = std::filesystem::is_regular_file(InPath, Ignored);
	std::unique_ptr<FCommentSource> Source = FCommentSource::Open(InPath, OutError);
	if (!Source)
	{
		return false;
	}
	const std::string_view Head = Source->GetHead();
	InOutInput.Report.Import.Format = Source->GetFormat();
	const bool bMayBeOwn = Source->GetFormat() != nullptr && MayBeOwn(*Source, bPlain);
	if (!Source->GetError().empty())
	{
		OutError = InOutInput.Report.Path + ": " + Source->GetError();
		return false;
	}
	if (bMayBeOwn)
	{
		Source = bPlain ? FCommentSource::Open(InPath, OutError) : std::move(Source);
		if (!Source || !LoadWhole(*Source, InOutInput, OutError))
		{
			return false;
		}
		InOutInput.Report.Import.Format = DetectWhole(InOutInput);
	}
	else if (IsOwn(Source->GetFormat()))
	{
		InOutInput.Foreign = DescribeForeign(Head);
		InOutInput.Bytes = Head;
	}
	else if (!bPlain)
	{
		return LoadWhole(*Source, InOutInput, OutError);
	}
	return true;
}

/** Our own document as it is, less what is too much of it. */
FCommentsFile TakeOwn(FCommentsInput InInput)
{
	FCommentsFile File;
	File.Text = std::move(*InInput.Text);
	File.Document = std::move(InInput.Document);
	File.Report = std::move(InInput.Report);
	File.Report.NumCrowdedOut = BoundCrowds(File.Text, File.Document);
	return File;
}

/** Filters comments that were read, and makes what the overlay is handed. */
bool MakeFile(FCommentsInput InInput, const FCommentsOptions& InOptions, FCommentsFile& OutFile, std::string& OutError)
{
	constexpr std::size_t MaxSize = std::numeric_limits<int32>::max();
	if (InOptions.Filter != nullptr)
	{
		OutFile.Rules = InOptions.Filter->Apply(InInput.Comments);
	}
	InInput.Report.NumCrowdedOut = BoundCrowds(InInput.Comments);
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
	const bool bStandard = InPath == StandardInput;
	const std::string Path = bStandard ? "/dev/stdin" : InPath;
	FCommentsInput Input;
	Input.Report.Path = bStandard ? "standard input" : InPath;
	if (!ReadBytes(Input, Path, OutError))
	{
		return std::nullopt;
	}
	if (IsOwn(Input.Report.Import.Format))
	{
		return Input;
	}
	if (!ImportOther(Input, Path, OutError))
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
	if (!Foreign.empty())
	{
		OutError = Report.Path + ": " + Foreign;
		return false;
	}
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
	if (const std::optional<FDocumentFault>& Fault = Document.GetFault())
	{
		OutError = DescribeFault(Report.Path, *Text, *Fault);
	}
	return !Document.GetFault();
}

std::optional<FDocumentFault> FCommentsInput::GetFault() const
{
	return Foreign.empty() ? Document.GetFault() : FDocumentFault{Foreign};
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
	if (InFault.Line > 0)
	{
		return InPath + ":" + std::to_string(InFault.Line) + ":" + std::to_string(InFault.Column) + ": " +
			   InFault.Reason;
	}
	constexpr int32 EnoughToSee = DetectionSize;
	const std::string Head = ToUtf8(InText.Left(EnoughToSee));
	if (!NamesList(Head))
	{
		return InPath + ": " + DescribeForeign(Head);
	}
	return InPath + ": " + InFault.Reason +
		   "; a comment document is a JSON object like {\"datas\": [{\"danmaku_content\": \"Hello\", ...}, ...]}";
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
				*OutFault = Input->GetFault();
			}
			return std::nullopt;
		}
		if (!bFiltered)
		{
			return TakeOwn(std::move(*Input));
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
		if (!Input->ReadDocument(Ignored, false) && !Input->Text)
		{
			// Seen by its beginning to be no comments: the overlay would find none in the rest of it either.
			Input->Text.emplace();
		}
		return TakeOwn(std::move(*Input));
	}
	return MakeFile(std::move(*Input), InOptions, File, OutError) ? std::optional(std::move(File)) : std::nullopt;
}

} // namespace Flitmark
