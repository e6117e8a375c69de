#include "StageFixture.h"

#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/Image.h"
#include "Engine/World.h"

#include <random>

namespace Flitmark
{

namespace
{

const char* const ModeBoxes[] = {"Scroll", "Top", "Bottom"};
const char* const SizeBoxes[] = {"Small", "Normal"};
const char* const ColorBoxes[] = {"C_FE0302", "C_00CD00", "C_4266BE", "C_FFFFFF"};

class FPanel : public FStageFixture
{
protected:
	FPanel() { GetPanel().SetVisible(); }

	UUI_DanmakuNodeSetting& GetPanel() const { return Stage->GetPanel(); }
	UCheckBox* GetBox(const char* Name) const { return FindInPanel<UCheckBox>(*FromUtf8(Name)); }
	UEditableText* GetField() const { return FindInPanel<UEditableText>(TEXT("InputColorText")); }
	std::string GetFieldText() const { return ToUtf8(GetField()->GetText().ToString()); }
	void Type(const FString& Text) { GetField()->TypeText(FText::FromString(Text)); }
	std::string GetColor() const { return ToUtf8(GetPanel().GetFontColor()); }
	bool IsHidden() const { return GetPanel().GetVisibility() == ESlateVisibility::Hidden; }
	template <std::size_t Num>
	std::string GetChecked(const char* const (&Names)[Num]) const
	{
		std::string Checked;
		for (const char* Name : Names)
		{
			Checked += GetBox(Name)->IsChecked() ? (Checked.empty() ? "" : " ") + std::string(Name) : "";
		}
		return Checked;
	}
	/** The name of the box to which a selection refers. */
	std::string GetSelected(const TCHAR* Property) const
	{
		const UUI_DanmakuNodeSetting& Panel = GetPanel();
		return ToUtf8(Panel.GetClass()->FindPropertyByName(Property)->GetObjectValue(&Panel)->GetName());
	}
	void CheckInvariants() const;
};

void FPanel::CheckInvariants() const
{
	EXPECT_EQ(GetChecked(ModeBoxes), GetSelected(TEXT("ModelSelect"))) << "one mode, the selected one";
	EXPECT_EQ(GetChecked(SizeBoxes), GetSelected(TEXT("FontSelect"))) << "one size, the selected one";
	const std::string Colors = GetChecked(ColorBoxes);
	EXPECT_TRUE(Colors.empty() || Colors == GetSelected(TEXT("ColorSelect"))) << Colors;

	const std::string Color = GetColor();
	EXPECT_EQ(Color.size(), 9u);
	EXPECT_EQ(Color.front(), '#');
	EXPECT_EQ(Color.find_first_not_of("0123456789ABCDEF", 1), std::string::npos) << Color;
	EXPECT_EQ(Color.substr(7), "FF");
	EXPECT_EQ("#" + ToUtf8(FColor::FromHex(FromUtf8(Color)).ToHex()), Color);
	if (!Colors.empty())
	{
		EXPECT_EQ(Color, "#" + Colors.substr(2) + "FF") << "a checked preset is the color";
		EXPECT_TRUE(GetFieldText() == "#" + Colors.substr(2) || GetFieldText() == "#")
			<< GetFieldText() << ", or emptied";
	}

	const std::string Text = GetFieldText();
	EXPECT_TRUE(!Text.empty() && Text.front() == '#' && Text.size() <= 7) << Text;
	EXPECT_EQ(Text.find_first_not_of("0123456789abcdefABCDEF", 1), std::string::npos) << Text;
}

TEST_F(FPanel, StartsWithScrollNormalWhite)
{
	EXPECT_EQ(GetPanel().GetModel(), EDanmakuMode::SCROLL);
	EXPECT_EQ(GetPanel().GetFontSize(), 24);
	EXPECT_EQ(GetColor(), "#FFFFFFFF");
	EXPECT_EQ(GetFieldText(), "#FFFFFF");
	EXPECT_EQ(GetChecked(ColorBoxes), "C_FFFFFF");
	CheckInvariants();
	Rebuild(MakeOptions(FVector2f(1920.f, 1080.f)));
	EXPECT_TRUE(IsHidden());
}

TEST_F(FPanel, TakesItsSizesFromItsDefaults)
{
	FStageOptions Options = MakeOptions(FVector2f(1920.f, 1080.f));
	Options.Settings = {{TEXT("SmallFontSize"), 14}, {TEXT("NormalFontSize"), -7}};
	Rebuild(Options);
	GetPanel().SetVisible();
	EXPECT_EQ(GetPanel().GetFontSize(), -7);
	GetBox("Small")->Toggle(true);
	EXPECT_EQ(GetPanel().GetFontSize(), 14);
}

TEST_F(FPanel, ReturnsToAPresetThatATypedColorUnchecked)
{
	GetBox("C_4266BE")->Toggle(true);
	GetBox("C_4266BE")->Toggle(false);
	EXPECT_EQ(GetChecked(ColorBoxes), "C_4266BE") << "it cannot be unchecked by hand";
	Type(TEXT("#abc"));
	EXPECT_EQ(GetSelected(TEXT("ColorSelect")), "C_4266BE");
	GetBox("C_4266BE")->Toggle(true);
	EXPECT_EQ(GetChecked(ColorBoxes), "C_4266BE");
	EXPECT_EQ(GetFieldText(), "#4266BE");
	EXPECT_EQ(GetColor(), "#4266BEFF");
}

TEST_F(FPanel, GivesBackEvery8BitColor)
{
	const UImage* Swatch = FindInPanel<UImage>(TEXT("DisplayColorImage"));
	for (int32 Value = 0; Value < 256; ++Value)
	{
		const uint8 Byte = static_cast<uint8>(Value);
		const FString Digits = FColor(Byte, static_cast<uint8>(255 - Value), 7).ToHex().Left(6);
		Type(Digits);
		EXPECT_EQ(GetColor(), "#" + ToUtf8(Digits) + "FF");
		EXPECT_EQ(Swatch->GetColorAndOpacity().R, FLinearColor::sRGBToLinearTable[Byte]);
	}
}

TEST_F(FPanel, HidesWhenThePointerHasBeenAwayForLong)
{
	const auto Wait = [this](int32 Quarters)
	{
		RunFrames(Quarters, 0.25f);
	};
	GetPanel().SetHidden();
	Wait(2);
	EXPECT_FALSE(IsHidden());
	Wait(1);
	EXPECT_TRUE(IsHidden());

	GetPanel().SetVisible();
	GetPanel().SetHidden();
	Wait(2);
	GetPanel().SetHidden();
	Wait(2);
	EXPECT_FALSE(IsHidden()) << "the delay counts from the last call";
	GetPanel().SetVisible();
	Wait(8);
	EXPECT_FALSE(IsHidden());

	GetPanel().PointerLeave();
	Wait(2);
	GetPanel().PointerEnter();
	Wait(8);
	EXPECT_FALSE(IsHidden()) << "the pointer came back";
	GetPanel().PointerLeave();
	Wait(3);
	EXPECT_TRUE(IsHidden());
	GetPanel().PointerEnter();
	EXPECT_TRUE(IsHidden()) << "a hidden panel feels no pointer";
	GetPanel().SetHidden();
	Wait(4);
	EXPECT_TRUE(IsHidden());
}

TEST_F(FPanel, IsNotReachedByAHideAfterItsEnd)
{
	const int32 NumTimers = GetTimers().Num();
	UUI_DanmakuNodeSetting* Panel = CreateWidget<UUI_DanmakuNodeSetting>(&Stage->GetOverlay(), GetPanel().GetClass());
	const TWeakObjectPtr<UUI_DanmakuNodeSetting> Weak(Panel);
	Panel->SetVisible();
	Panel->SetHidden();
	EXPECT_EQ(GetTimers().Num(), NumTimers + 1);
	CollectGarbage();
	ASSERT_EQ(Weak.Get(), nullptr);
	RunFrames(4, 0.25f);
	EXPECT_EQ(GetTimers().Num(), NumTimers);
}

TEST_F(FPanel, KeepsItsPromisesWhateverAViewerDoes)
{
	std::mt19937 Random(20240305);
	const std::u16string Characters = u"0123456789abcdefABCDEF#xyz \u3000\xD83D\xDE00";
	for (int32 Step = 0; Step < 5000; ++Step)
	{
		std::u16string Typed;
		switch (Random() % 4)
		{
		case 0:
			GetBox(ModeBoxes[Random() % 3])->Toggle(Random() % 2 == 0);
			break;
		case 1:
			GetBox(SizeBoxes[Random() % 2])->Toggle(Random() % 2 == 0);
			break;
		case 2:
			GetBox(ColorBoxes[Random() % 4])->Toggle(Random() % 2 == 0);
			break;
		default:
			// Sometimes a digit is appended, sometimes the result is a preset's text.
			Typed = Random() % 2 == 0 ? GetField()->GetText().ToString().GetStd() : u"";
			Typed = Random() % 8 == 0 ? FromUtf8(ColorBoxes[Random() % 4] + 2).GetStd() : Typed;
			for (std::size_t Length = Random() % 8; Length > 0; --Length)
			{
				Typed.insert(Typed.begin() + static_cast<std::ptrdiff_t>(Random() % (Typed.size() + 1)),
							 Characters[Random() % Characters.size()]);
			}
			Type(FString(Typed));
		}
		CheckInvariants();
		const std::string Text = GetFieldText();
		const std::string Color = GetColor();
		const std::string Checked = GetChecked(ColorBoxes);
		Type(FromUtf8(Text));
		if (Text != "#")
		{
			// As with a toolkit that raises the event for text set by code, too. A cleared field would lose its preset.
			GetField()->OnTextChanged.Broadcast(GetField()->GetText());
		}
		EXPECT_EQ(GetFieldText(), Text) << "a fixed point";
		EXPECT_EQ(GetColor(), Color);
		EXPECT_EQ(GetChecked(ColorBoxes), Checked);
		ASSERT_FALSE(HasFailure()) << "after " << Step << " steps, the last one typed " << ToUtf8(FString(Typed));
	}
}

} // namespace

} // namespace Flitmark
