#include "Subtitles/AssWriter.h"

#include "AssText.h"
#include "Formats/ServiceComment.h"

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

/** Ticks of 100 ns in the format's unit of time. */
constexpr int64 TicksPerHundredth = 100'000;

constexpr FTextColor White;

/** Bytes that are handed on at a time. */
constexpr std::size_t PieceSize = std::size_t{1} << 16;

uint8 Fade(uint8 InAlpha, double InFactor)
{
	return static_cast<uint8>(std::lround(InAlpha * InFactor));
}

/** The size that gives letters of a size in canvas units an em: renderers take it for the height of the font's cell. */
double GetFontSize(const FFontFace& InFace, double InEm)
{
	return (InFace.Ascent + InFace.Descent) * InEm;
}

bool AreSame(FTextColor InLeft, FTextColor InRight)
{
	return InLeft.Red == InRight.Red && InLeft.Green == InRight.Green && InLeft.Blue == InRight.Blue;
}

/** Commas part the fields of a style, and a backslash ends a name. */
std::string MakeName(const std::string& InFamily)
{
	std::string Name = InFamily;
	std::erase_if(Name,
				  [](char InLetter) { return std::string_view(",\\{}\r\n").find(InLetter) != std::string::npos; });
	return Name;
}

class FAssWriter
{
public:
	FAssWriter(FTextEngine& InEngine, double InOpacity, FVector2f InCanvasSize)
		: Engine(InEngine)
		, Opacity(InOpacity)
		, CanvasSize(InCanvasSize)
		, Usual(InEngine.PrimaryFace())
		, UsualWeight(Usual.Weight > 550 ? BoldWeight : RegularWeight)
	{
	}

	void AddHead();
	void AddComment(const FPlacedComment& InComment);

	std::string Text;

private:
	void AddEvent(const FPlacedComment& InComment, const FTextRow& InRow);
	void AddPlace(const FPlacedComment& InComment, FVector2D InShift, int64 InBegin, int64 InEnd);
	void AddLook(const FCommentStyle& InStyle);
	void AddPieces(const FTextRow& InRow, float InSize);

	/** The font of a piece as the file names it: no renderer draws with a color font's letters. */
	const FFontFace& GetFace(const FTextPiece& InPiece) const { return InPiece.bColor ? Usual : *InPiece.Face; }

	FTextEngine& Engine;
	const double Opacity;
	const FVector2f CanvasSize;
	/** The style's font. */
	const FFontFace& Usual;
	/** A style is either of these, as far as weight goes. */
	static constexpr int32 RegularWeight = 400;
	static constexpr int32 BoldWeight = 700;
	const int32 UsualWeight;
	/** The style's size in points. */
	static constexpr float UsualSize = FServiceComment::NormalPoints;
};

void FAssWriter::AddHead()
{
	const FTextColor Outline = FTextEngine::GetOutlineColor(White);
	// Without the matrix, some renderers would take the colors for those of an old standard and change them. Texts are
	// kerned as the overlay's are, and not wrapped.
	Text += "[Script Info]\n"
			"; Comments as Flitmark's overlay places them\n"
			"ScriptType: v4.00+\n"
			"WrapStyle: 2\n"
			"ScaledBorderAndShadow: yes\n"
			"Kerning: yes\n"
			"YCbCr Matrix: None\n"
			"PlayResX: ";
	AppendNumber(Text, CanvasSize.X);
	Text += "\nPlayResY: ";
	AppendNumber(Text, CanvasSize.Y);
	Text +=
		"\n\n[V4+ Styles]\n"
		"Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, Bold, Italic, "
		"Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, Alignment, MarginL, "
		"MarginR, MarginV, Encoding\n"
		"Style: Comment," +
		MakeName(Usual.Family) + ",";
	AppendNumber(Text, GetFontSize(Usual, FTextEngine::GetEm(UsualSize)));
	Text += ",&H";
	AppendTransparency(Text, Fade(White.Alpha, Opacity));
	AppendColor(Text, White);
	Text += ",&H00FFFFFF,&H";
	AppendTransparency(Text, Fade(Outline.Alpha, Opacity));
	AppendColor(Text, Outline);
	Text += ",&H00000000,";
	Text += UsualWeight == BoldWeight ? "-1" : "0";
	Text += ",0,0,0,100,100,0,0,1,";
	AppendNumber(Text, Engine.GetOutlineWidth(UsualSize));
	Text += ",0,7,0,0,0,1\n"
			"\n[Events]\n"
			"Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n";
}

void FAssWriter::AddComment(const FPlacedComment& InComment)
{
	const FCommentStyle& Style = InComment.Style->Style;
	for (const FTextRow& Row : Engine.Split(Style.Text))
	{
		// An empty line only takes room.
		if (!Row.Pieces.empty())
		{
			AddEvent(InComment, Row);
		}
	}
}

void FAssWriter::AddEvent(const FPlacedComment& InComment, const FTextRow& InRow)
{
	const FCommentStyle& Style = InComment.Style->Style;
	const double Em = FTextEngine::GetEm(Style.Size);
	double Ascent = 0.0;
	for (const FTextPiece& Piece : InRow.Pieces)
	{
		Ascent = std::max(Ascent, GetFace(Piece).Ascent);
	}
	// Rounded down, no event reaches into the frame that ends it.
	const int64 Begin = InComment.Begin / TicksPerHundredth;
	const int64 End = std::max(InComment.End / TicksPerHundredth, Begin + 1);
	Text += InComment.bViewers ? "Dialogue: 1," : "Dialogue: 0,";
	AppendTime(Text, Begin);
	Text += ',';
	AppendTime(Text, End);
	Text += ",Comment,,0,0,0,,{";
	AddPlace(InComment, FVector2D(InRow.Left, InRow.Baseline - Ascent) * Em, Begin, End);
	AddLook(Style);
	if (InRow.bBidi)
	{
		// Makes the text, rather than the renderer, decide the direction.
		Text += "\\fe-1";
	}
	Text += '}';
	AddPieces(InRow, Style.Size);
	Text += '\n';
}

void FAssWriter::AddPlace(const FPlacedComment& InComment, FVector2D InShift, int64 InBegin, int64 InEnd)
{
	const bool bMoves = InComment.Velocity != FVector2D::ZeroVector;
	const auto AddPoint = [&](int64 InHundredths)
	{
		const FVector2D Point = InComment.GetPosition(InHundredths * TicksPerHundredth) + InShift;
		AppendNumber(Text, Point.X);
		Text += ',';
		AppendNumber(Text, Point.Y);
	};
	Text += bMoves ? "\\move(" : "\\pos(";
	AddPoint(InBegin);
	if (bMoves)
	{
		// Over the whole event, whose times are exact in these units.
		Text += ',';
		AddPoint(InEnd);
	}
	Text += ')';
}

void FAssWriter::AddLook(const FCommentStyle& InStyle)
{
	const FTextColor Color = {InStyle.Color.R, InStyle.Color.G, InStyle.Color.B, InStyle.Color.A};
	const FTextColor Outline = FTextEngine::GetOutlineColor(Color);
	if (InStyle.Size != UsualSize)
	{
		Text += "\\fs";
		AppendNumber(Text, GetFontSize(Usual, FTextEngine::GetEm(InStyle.Size)));
		Text += "\\bord";
		AppendNumber(Text, Engine.GetOutlineWidth(InStyle.Size));
	}
	if (!AreSame(Color, White))
	{
		Text += "\\c&H";
		AppendColor(Text, Color);
		Text += '&';
	}
	if (!AreSame(Outline, FTextEngine::GetOutlineColor(White)))
	{
		Text += "\\3c&H";
		AppendColor(Text, Outline);
		Text += '&';
	}
	if (Color.Alpha != White.Alpha)
	{
		const double Factor = Opacity * Color.Alpha / 255.0;
		Text += "\\1a&H";
		AppendTransparency(Text, Fade(White.Alpha, Factor));
		Text += "&\\3a&H";
		AppendTransparency(Text, Fade(Outline.Alpha, Factor));
		Text += '&';
	}
}

void FAssWriter::AddPieces(const FTextRow& InRow, float InSize)
{
	const double Em = FTextEngine::GetEm(InSize);
	const FFontFace* Current = &Usual;
	int32 Weight = UsualWeight;
	bool bItalic = false;
	for (std::size_t Index = 0; Index < InRow.Pieces.size(); ++Index)
	{
		const FTextPiece& Piece = InRow.Pieces[Index];
		const FFontFace& Face = GetFace(Piece);
		std::string Tags;
		if (&Face != Current)
		{
			Tags += "\\fn" + MakeName(Face.Family) + "\\fs";
			AppendNumber(Tags, GetFontSize(Face, Em));
			Current = &Face;
		}
		if (Face.Weight != Weight)
		{
			Tags += "\\b" + std::to_string(Face.Weight);
			Weight = Face.Weight;
		}
		if (Face.bItalic != bItalic)
		{
			Tags += Face.bItalic ? "\\i1" : "\\i0";
			bItalic = Face.bItalic;
		}
		Text += Tags.empty() ? Tags : "{" + Tags + "}";
		AppendLiteral(Text, Piece.Text, Index == 0, Index + 1 == InRow.Pieces.size());
	}
}

} // namespace

bool WriteAss(const FPlacedComments& InComments, FTextEngine& InEngine, double InOpacity, const FTextOutput& InOutput)
{
	FAssWriter Writer(InEngine, InOpacity, InComments.CanvasSize);
	Writer.AddHead();
	for (const FPlacedComment& Comment : InComments.Comments)
	{
		Writer.AddComment(Comment);
		if (Writer.Text.size() >= PieceSize)
		{
			if (!InOutput(Writer.Text))
			{
				return false;
			}
			Writer.Text.clear();
		}
	}
	return InOutput(Writer.Text);
}

} // namespace Flitmark
