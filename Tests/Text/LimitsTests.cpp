#include "Text/TextLimits.h"
#include "TextLines.h"
#include "TextTestKit.h"

#include <limits>

namespace Flitmark
{

namespace
{

constexpr FTextScale OneToOne = {1.0, 1.0};

std::vector<std::vector<uint32>> Split(std::u16string_view InText)
{
	FTextLines Lines(InText);
	std::vector<std::vector<uint32>> All;
	for (std::vector<uint32> Points; Lines.Next(Points);)
	{
		All.push_back(Points);
	}
	return All;
}

} // namespace

TEST(Limits, BrokenTextIsMadeSound)
{
	using FPoints = std::vector<uint32>;
	const std::pair<std::u16string, FPoints> Cases[] = {
		{{0xd83d, 0xde00}, {0x1f600}},
		{{0xd83d}, {0xfffd}},
		{{0xde00}, {0xfffd}},
		{{0xde00, 0xd83d}, {0xfffd, 0xfffd}},
		{{0xd83d, 0xd83d, 0xde00}, {0xfffd, 0x1f600}},
		{{0xd83d, u'a'}, {0xfffd, 'a'}},
		{{u'a', 0, u'b'}, {'a', 'b'}},
		{{1, 8, 0x1b, 0x7f, 0x85, 0x9f, 0x2028, 0xfeff, 0xfffb}, {}},
		{{0xffff}, {0xffff}},
	};
	for (const auto& [Text, Points] : Cases)
	{
		EXPECT_EQ(Split(Text), std::vector<FPoints>{Points}) << ToNarrow(Text);
	}
	const std::u16string Controls = {0, 1, 7, 8, 0x1b, 0x7f, 0x90};
	EXPECT_EQ(GetEngine().Measure(Controls, 24.0F).Width, 0.0);
	EXPECT_EQ(GetEngine().Rasterize(Controls, 24.0F, {}, OneToOne).Width, 0);
}

TEST(Limits, LongTextsAreCutAndSaySo)
{
	const std::size_t Most = FTextLimits::MaxCodeUnits;
	const std::u16string Full(Most, u'国');
	const std::u16string Long(5'000'000, u'国');
	const FTextSize FullSize = GetEngine().Measure(Full, 24.0F);
	const FTextSize LongSize = GetEngine().Measure(Long, 24.0F);
	EXPECT_FALSE(FullSize.bCut);
	EXPECT_TRUE(LongSize.bCut);
	EXPECT_EQ(LongSize.Width, FullSize.Width);
	EXPECT_NEAR(FullSize.Width, static_cast<double>(Most) * 32.0, 100.0);
	const FSprite Sprite = GetEngine().Rasterize(Long, 24.0F, {}, OneToOne);
	EXPECT_TRUE(Sprite.bCut);
	EXPECT_NEAR(Sprite.Width, FullSize.Width, 4.0);

	std::u16string Pairs(Most - 1, u'a');
	Pairs += u"😀";
	EXPECT_EQ(LimitText(Pairs).size(), Most - 1) << "no pair is cut in two";
}

TEST(Limits, ManyLinesAreCutAndSaySo)
{
	const std::u16string Lines(FTextLimits::MaxLines - 1, u'\n');
	EXPECT_FALSE(GetEngine().Measure(Lines, 24.0F).bCut);
	const FTextSize More = GetEngine().Measure(Lines + u"\n\nx", 24.0F);
	EXPECT_TRUE(More.bCut);
	EXPECT_EQ(More.Height, FTextLimits::MaxLines * 40.0);
	EXPECT_TRUE(GetEngine().Rasterize(u"x" + Lines + u"\nx", 24.0F, {}, OneToOne).bCut);
}

TEST(Limits, SpritesAreBounded)
{
	struct FCase
	{
		std::u16string Text;
		float Points;
		FTextScale Scale;
		bool bPainted;
		bool bCut;
	};
	const float Huge = 2147483647.0F;
	const FCase Cases[] = {
		{u"Ag国", 1000.0F, OneToOne, true, false},
		{u"Ag国😀", 3000.0F, OneToOne, true, true},
		{std::u16string(4096, u'国'), 1000.0F, OneToOne, true, true},
		{std::u16string(100, u'\n') + u"x", 3000.0F, OneToOne, true, false},
		{u"x" + std::u16string(100, u'\n') + u"国国国", 2000.0F, OneToOne, true, true},
		{u"\ufdfd\ufdfd", 3000.0F, OneToOne, false, true},
		{u"x", Huge, OneToOne, false, true},
		{u"x", 24.0F, {1e9, 1.0}, false, true},
		{u"x", Huge, {1e-8, 1e-8}, true, false},
		{u"x", std::numeric_limits<float>::infinity(), OneToOne, false, true},
		{u"x", 24.0F, {std::numeric_limits<double>::infinity(), 1.0}, false, true},
		{u"x", 24.0F, {std::numeric_limits<double>::quiet_NaN(), 1.0}, false, false},
		{u"x", 24.0F, {0.0, 1.0}, false, false},
		{u"x", 24.0F, {1.0, -1.0}, false, false},
		{u"x", 0.1F, OneToOne, false, false},
		{u"x", 0.0F, OneToOne, false, false},
		{u"x", -24.0F, OneToOne, false, false},
		{u"", Huge, OneToOne, false, false},
	};
	for (const FCase& Case : Cases)
	{
		const FSprite Sprite = GetEngine().Rasterize(Case.Text, Case.Points, {}, Case.Scale);
		SCOPED_TRACE(ToNarrow(Case.Text.substr(0, 4)) + std::to_string(Case.Points));
		EXPECT_EQ(Sprite.Width > 0, Case.bPainted);
		EXPECT_EQ(Sprite.bCut, Case.bCut);
		EXPECT_LE(int64{Sprite.Width} * Sprite.Height, FTextLimits::MaxSpritePixels);
		EXPECT_EQ(Sprite.Pixels.size(),
				  static_cast<std::size_t>(Sprite.Width) * static_cast<std::size_t>(Sprite.Height) * 4);
	}
}

TEST(Limits, FontsThatCannotBeHad)
{
	std::string Error;
	EXPECT_EQ(FTextEngine::Create({"Sans:weight=:::["}, Error) == nullptr, !Error.empty());
	const auto Engine = MakeEngine("No Such Family At All");
	ASSERT_NE(Engine, nullptr);
	EXPECT_EQ(Engine->PrimaryFamily(), GetEngine().PrimaryFamily());
	EXPECT_GT(MakeEngine("DejaVu Sans:bold")->Measure(u"text", 24.0F).Width,
			  MakeEngine("DejaVu Sans")->Measure(u"text", 24.0F).Width);
	EXPECT_EQ(MakeEngine("DejaVu Sans")->PrimaryFamily(), "DejaVu Sans");
}

} // namespace Flitmark
