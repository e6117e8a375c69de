#pragma once

#include "Widgets/DeclarativeSyntaxSupport.h"
#include "Widgets/SWidget.h"

/** A window with one widget in it. */
class SWindow : public SWidget
{
public:
	void SetContent(TSharedRef<SWidget> InContent) { Content = InContent; }

	void SlatePrepass(float InLayoutScaleMultiplier) override
	{
		if (Content.IsValid())
		{
			Content->SlatePrepass(InLayoutScaleMultiplier);
		}
	}
	int32 Paint(const FPaintArgs& InArguments, const FGeometry& InGeometry, const FSlateRect& InCullingRect,
				FSlateWindowElementList& OutDrawElements, int32 InLayerId, const FWidgetStyle& InWidgetStyle,
				bool bInParentEnabled) const override
	{
		return Content.IsValid() ? Content->Paint(InArguments, InGeometry, InCullingRect, OutDrawElements, InLayerId,
												  InWidgetStyle, bInParentEnabled)
								 : InLayerId;
	}

private:
	TSharedPtr<SWidget> Content;
};

/** A window that is not on any screen. */
class SVirtualWindow final : public SWindow
{
public:
	struct FArguments
	{
		/** Slate units. */
		FArguments& Size(FVector2D InSize)
		{
			WindowSize = InSize;
			return *this;
		}

		FVector2D WindowSize = FVector2D::ZeroVector;
	};

	void Construct(const FArguments&) {}
};
