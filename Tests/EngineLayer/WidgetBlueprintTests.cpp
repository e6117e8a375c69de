#include "LayerFixture.h"

#include "Blueprint/WidgetBlueprintBuilder.h"
#include "Components/TextBlock.h"

namespace
{

using FBlueprint = std::unique_ptr<UWidgetBlueprintGeneratedClass>;

class FWidgetBlueprints : public FLayerFixture
{
};

TEST_F(FWidgetBlueprints, ThatDoNotFitTheirClassAreRefused)
{
	struct FWidget
	{
		UClass* Class;
		const TCHAR* Name;
		const TCHAR* Panel;
	};
	UClass* const Canvas = UCanvasPanel::StaticClass();
	UClass* const Button = UButton::StaticClass();
	UClass* const Field = UEditableText::StaticClass();
	const struct
	{
		std::vector<FWidget> Tree;
		/** What the message must name; none if the build succeeds. */
		std::vector<std::string> Named;
	} Cases[] = {
		{{{Canvas, u"Root", u""}, {Button, u"Go", u"Root"}, {Field, u"Field", u"Root"}}, {}},
		{{{Canvas, u"Root", u""}, {Field, u"Field", u"Root"}}, {"WBP_Test", "UTestBoundWidget", "\"Go\"", "UButton"}},
		{{{Canvas, u"Root", u""}, {Button, u"Go", u"Root"}, {Button, u"Field", u"Root"}},
		 {"UTestBoundWidget", "\"Field\"", "UEditableText", "UButton"}},
		{{}, {"\"Go\"", "UButton"}},
		{{{Canvas, u"Root", u""}, {Button, u"Go", u"Root"}, {Button, u"Go", u"Root"}}, {"\"Go\"", "twice"}},
		{{{Canvas, u"Root", u""}, {Button, u"Go", u""}}, {"\"Go\"", "must be in a panel"}},
		{{{Button, u"Go", u"Root"}}, {"\"Go\"", "must be in a panel, unless it is the root"}},
		{{{Canvas, u"Root", u""}, {Button, u"Go", u"Elsewhere"}}, {"\"Go\"", "not a panel"}},
		{{{Field, u"Field", u""}, {Button, u"Go", u"Field"}}, {"\"Go\"", "not a panel"}},
		{{{Button, u"Go", u""}, {Field, u"Field", u"Go"}}, {}},
		{{{Button, u"Go", u""}, {Field, u"Field", u"Go"}, {Field, u"Other", u"Go"}}, {"\"Other\"", "only child"}},
		{{{nullptr, u"Root", u""}, {Button, u"Go", u"Root"}}, {"\"Root\"", "no widget can be made"}},
		{{{UPanelWidget::StaticClass(), u"Root", u""}}, {"\"Root\"", "no widget can be made"}},
		{{{UTestListener::StaticClass(), u"Root", u""}}, {"\"Root\"", "no widget can be made"}},
	};
	for (const auto& Case : Cases)
	{
		FWidgetBlueprintBuilder Builder(TEXT("WBP_Test"), UTestBoundWidget::StaticClass());
		for (const FWidget& Widget : Case.Tree)
		{
			Builder.Add(Widget.Class, Widget.Name, Widget.Panel);
		}
		std::string Error;
		const FBlueprint Blueprint = Builder.Build(Error);
		EXPECT_EQ(Blueprint == nullptr, !Case.Named.empty()) << Error;
		EXPECT_EQ(Error.empty(), Case.Named.empty());
		for (const std::string& Name : Case.Named)
		{
			EXPECT_NE(Error.find(Name), std::string::npos) << Error << " / " << Name;
		}
	}
}

TEST_F(FWidgetBlueprints, GiveEachWidgetItsTreeMembersAndDefaults)
{
	FWidgetBlueprintBuilder Builder(TEXT("WBP_Test"), UTestBoundWidget::StaticClass());
	std::string Error;
	const FBlueprint Blueprint =
		Builder.Add(UCanvasPanel::StaticClass(), TEXT("Root"))
			.Add(UButton::StaticClass(), TEXT("go"), TEXT("Root"), [](UWidget& Widget) { Widget.SetIsEnabled(false); })
			.Add(UEditableText::StaticClass(), TEXT("Field"), TEXT("Root"))
			.Build(Error);
	ASSERT_NE(Blueprint, nullptr) << Error;
	Blueprint->GetDefaultObject<UTestBoundWidget>()->Limit = 3;
	{
		UTestBoundWidget* First = CreateWidget<UTestBoundWidget>(World, Blueprint.get());
		UTestBoundWidget* Second = CreateWidget<UTestBoundWidget>(World, Blueprint.get());
		UTestBoundWidget* Plain = CreateWidget<UTestBoundWidget>(World);
		ASSERT_TRUE(First->Go != nullptr && First->Field != nullptr);
		EXPECT_NE(First->Go.Get(), Second->Go.Get());
		EXPECT_EQ(First->GetWidgetFromName(TEXT("Go")), First->Go.Get());
		EXPECT_FALSE(First->Go->GetIsEnabled());
		EXPECT_EQ(First->Limit, 3);
		EXPECT_EQ(Plain->Limit, 7) << "the native class keeps its own";
		EXPECT_EQ(Plain->Go.Get(), nullptr);
		EXPECT_TRUE(First->IsA<UTestBoundWidget>());
		EXPECT_EQ(CreateWidget<UTestBoundWidget>(World, UTestListener::StaticClass()), nullptr);
		EXPECT_EQ(CreateWidget<UTestBoundWidget>(static_cast<UWorld*>(nullptr)), nullptr);
	}
	CollectGarbage();
}

} // namespace
