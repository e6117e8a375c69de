#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTeardown.h"
#include "Components/Spacer.h"
#include "UObject/GeneratedCppIncludes.h"
#include "Widgets/SWidget.h"

IMPLEMENT_LAYER_CLASS(USpacer, "Spacer")

namespace
{

/** A user widget as the root of a screen. */
class SObjectWidget final : public SWidget
{
public:
	explicit SObjectWidget(UUserWidget& InWidget)
		: Widget(InWidget)
	{
		Widget.ConstructTree();
	}
	~SObjectWidget() override
	{
		if (Widget.IsConstructed())
		{
			Widget.DestructTree();
		}
	}
	SObjectWidget(const SObjectWidget&) = delete;
	SObjectWidget& operator=(const SObjectWidget&) = delete;

	void SlatePrepass(float) override { Widget.ForceLayoutPrepass(); }
	int32 Paint(const FPaintArgs& InArguments, const FGeometry& InGeometry, const FSlateRect&, FSlateWindowElementList&,
				int32 InLayerId, const FWidgetStyle&, bool) const override
	{
		Widget.Arrange(InGeometry.GetLocalSize());
		FWidgetTeardown& Teardown = FWidgetTeardown::Get();
		Teardown.TickTree(Widget, InArguments.GetDeltaTime());
		Teardown.TearDownLeft();
		return InLayerId;
	}

private:
	UUserWidget& Widget;
};

} // namespace

TSharedRef<SWidget> UUserWidget::TakeWidget()
{
	std::shared_ptr<SWidget> Taken = TakenWidget.lock();
	if (Taken == nullptr)
	{
		Taken = std::make_shared<SObjectWidget>(*this);
		TakenWidget = Taken;
	}
	return TSharedRef<SWidget>(Taken);
}
