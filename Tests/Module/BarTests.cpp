#include "StageFixture.h"

#include "Components/Button.h"
#include "Components/EditableText.h"
#include "Components/TextBlock.h"
#include "Input/Events.h"

namespace Flitmark
{

namespace
{

class FBar : public FStageFixture
{
protected:
	UEditableText* GetField() const { return FindInBar<UEditableText>(TEXT("InputDanmakuText")); }
	std::string GetFieldText() const { return ToUtf8(GetField()->GetText().ToString()); }
	std::string GetCounter() const { return ToUtf8(FindInBar<UTextBlock>(TEXT("TextNum"))->GetText().ToString()); }
	void Type(const FString& Text) { GetField()->TypeText(FText::FromString(Text)); }
	void Click() { FindInBar<UButton>(TEXT("SendDanmakuButton"))->Click(); }
	bool IsFocused() const { return GetField()->HasKeyboardFocus(); }
	void RebuildWithMaximum(int32 Maximum)
	{
		FStageOptions Options = MakeOptions(FVector2f(1920.f, 1080.f));
		Options.Settings = {{TEXT("MaxNumOFInputTex"), Maximum}};
		Rebuild(Options);
		Stage->Preroll();
	}
	/** The text of the last comment made; empty if none was made since the last call. */
	std::string TakeSent()
	{
		const std::size_t Before = std::exchange(Known, Log.GetNodes().size());
		return Known > Before ? ToUtf8(GetLastNode()->GetData().Content) : "(nothing)";
	}

private:
	std::size_t Known = 0;
};

TEST_F(FBar, CountsAndCutsWhatIsTyped)
{
	const std::u16string Hundred(100, u'x');
	const std::u16string Pairs = u"\U0001F600\U0001F601";
	const struct
	{
		int32 Maximum;
		std::u16string Typed;
		std::u16string Kept;
		const char* Counter;
	} Cases[] = {
		{100, u"hello", u"hello", "5/100"},
		{100, Hundred, Hundred, "100/100"},
		{100, Hundred + u"more", Hundred, "100/100"},
		{100, u"\u5F39\u5E55", u"\u5F39\u5E55", "2/100"},
		{4, Pairs, Pairs, "4/4"},
		// In the middle of a surrogate pair.
		{3, Pairs, Pairs.substr(0, 3), "3/3"},
		{1, Pairs, Pairs.substr(0, 1), "1/1"},
		{0, u"x", u"", "0/0"},
		{-5, u"xyz", u"", "0/-5"},
		{1000, Hundred, Hundred, "100/1,000"},
		{2000, std::u16string(1999, u'y'), std::u16string(1999, u'y'), "1,999/2,000"},
		{MAX_int32, u"x", u"x", "1/2,147,483,647"},
	};
	for (const auto& Case : Cases)
	{
		RebuildWithMaximum(Case.Maximum);
		Type(FString(Case.Typed));
		EXPECT_EQ(GetField()->GetText().ToString().GetStd(), Case.Kept) << Case.Counter;
		EXPECT_EQ(GetCounter(), Case.Counter);
		// Nothing else rereads the field: what it shows is what is sent.
		Click();
		if (!Case.Kept.empty())
		{
			EXPECT_EQ(GetLastNode()->GetData().Content.GetStd(), Case.Kept);
		}
		EXPECT_EQ(GetFieldText(), "");
	}
}

TEST_F(FBar, SendsWhatIsNotBlankAsItIsWritten)
{
	const struct
	{
		const char16_t* Typed;
		const char* Sent;
		bool bFocused;
	} Cases[] = {
		{u"10x10 plain", "10x10 plain", false},
		{u"  10x10 spaces  ", "  10x10 spaces  ", false},
		{u"", "(nothing)", true},
		{u"   ", "(nothing)", true},
		{u"\t\r\n\u00A0\u2003\u3000", "(nothing)", true},
		{u"\u200B", "\u200B", false},
	};
	for (const auto& Case : Cases)
	{
		GetField()->ClearFocus();
		Type(Case.Typed);
		Click();
		EXPECT_EQ(TakeSent(), Case.Sent);
		EXPECT_EQ(GetFieldText(), "");
		EXPECT_EQ(GetCounter(), "0/100");
		EXPECT_EQ(IsFocused(), Case.bFocused) << Case.Sent;
	}
}

TEST_F(FBar, SendsOnEnterAndOnNothingElse)
{
	for (const ETextCommit::Type How : {ETextCommit::Default, ETextCommit::OnUserMovedFocus, ETextCommit::OnCleared})
	{
		Type(TEXT("kept"));
		GetField()->Commit(How);
		EXPECT_EQ(TakeSent(), "(nothing)");
		EXPECT_EQ(GetFieldText(), "kept");
		EXPECT_EQ(GetCounter(), "4/100");
	}
	GetField()->Commit(ETextCommit::OnEnter);
	EXPECT_EQ(TakeSent(), "kept");
	EXPECT_EQ(GetFieldText(), "");
	EXPECT_EQ(GetCounter(), "0/100");
}

TEST_F(FBar, KeepsAnOverlongTextThatWasNotTyped)
{
	RebuildWithMaximum(5);
	// The maximum drops behind the bar's back, as if the text had been set before the bar listened.
	Type(TEXT("12345"));
	const FProperty* Maximum = Stage->GetBar().GetClass()->FindPropertyByName(TEXT("MaxNumOFInputTex"));
	*Maximum->ContainerPtrToValuePtr<int32>(static_cast<UObject*>(&Stage->GetBar())) = 4;
	Click();
	EXPECT_EQ(TakeSent(), "(nothing)");
	EXPECT_EQ(GetFieldText(), "12345");
	EXPECT_TRUE(IsFocused());
	GetField()->Commit(ETextCommit::OnEnter);
	EXPECT_EQ(GetFieldText(), "12345");
	EXPECT_EQ(GetCounter(), "0/4") << "Enter sets the counter whatever came of it";
}

TEST_F(FBar, LosesTheTextOfAPlayerWithoutAUrl)
{
	Stage->SetUrl(TEXT(""));
	Type(TEXT("lost"));
	Click();
	EXPECT_EQ(TakeSent(), "(nothing)");
	EXPECT_EQ(GetFieldText(), "");
	EXPECT_EQ(GetCounter(), "0/100");
	EXPECT_FALSE(IsFocused());
}

TEST_F(FBar, HoveringShowsThePanelForAWhile)
{
	UButton* Button = FindInBar<UButton>(TEXT("DanmakuNodeSettingButton"));
	const UUI_DanmakuNodeSetting& Panel = Stage->GetPanel();
	Button->Hover();
	EXPECT_EQ(Panel.GetVisibility(), ESlateVisibility::Visible);
	Button->Unhover();
	RunFrames(2, 0.25f);
	EXPECT_EQ(Panel.GetVisibility(), ESlateVisibility::Visible);
	RunFrames(1, 0.25f);
	EXPECT_EQ(Panel.GetVisibility(), ESlateVisibility::Hidden);
}

} // namespace

} // namespace Flitmark
