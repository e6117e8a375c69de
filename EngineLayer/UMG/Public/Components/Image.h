#pragma once

#include "Components/Widget.h"
#include "Styling/SlateBrush.h"

/** A picture or a plain area; only its tint and texture are kept. */
class ENGINELAYER_API UImage : public UWidget
{
	DECLARE_LAYER_CLASS(UImage, UWidget)

public:
	explicit UImage(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	virtual void SetColorAndOpacity(FLinearColor InColorAndOpacity) { ColorAndOpacity = InColorAndOpacity; }
	const FLinearColor& GetColorAndOpacity() const { return ColorAndOpacity; }

	virtual void SetBrushResourceObject(UObject* ResourceObject) { Brush.SetResourceObject(ResourceObject); }
	const FSlateBrush& GetBrush() const { return Brush; }
	/** The image's desired size, in slate units, instead of its brush's. */
	void SetDesiredSizeOverride(FVector2D InDesiredSize) { DesiredSizeOverride = InDesiredSize; }

	void VisitReferences(FReferenceCollector& Collector) override
	{
		Super::VisitReferences(Collector);
		Collector.AddReferencedObject(Brush.GetResourceObject());
	}

protected:
	FVector2D ComputeDesiredSize() override { return DesiredSizeOverride; }

private:
	FSlateBrush Brush;
	FVector2D DesiredSizeOverride = FVector2D::ZeroVector;
	FLinearColor ColorAndOpacity{1.f, 1.f, 1.f, 1.f};
};
