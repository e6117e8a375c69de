#pragma once

#include "Blueprint/WidgetTree.h"
#include "CoreMinimal.h"

class UBorder;
class UTextBlock;

/** Shared by the classes that build their own widget trees. */
namespace FlitmarkWidgets
{

/** Font size of labels and fields, in points. */
constexpr float LabelSize = 12.f;

/** The widget's tree, which the engine has not made yet when a native class builds it. */
UWidgetTree& EnsureTree(UUserWidget& Owner);

/**
 * Sets Owner's reflected member with the widget's name, as the engine does for a blueprint's tree. Uses reflection
 * because the base classes keep these members private.
 */
void BindWidget(UUserWidget& Owner, UWidget& Widget);

/** Makes a widget in the tree and binds it to the member of that name. */
template <class WidgetT>
WidgetT& MakeBound(UUserWidget& Owner, FName Name)
{
	WidgetT* Made = EnsureTree(Owner).ConstructWidget<WidgetT>(WidgetT::StaticClass(), Name);
	BindWidget(Owner, *Made);
	return *Made;
}

/** Makes a widget in the tree that is not bound to a member. */
template <class WidgetT>
WidgetT& Make(UUserWidget& Owner)
{
	return *EnsureTree(Owner).ConstructWidget<WidgetT>();
}

UTextBlock& MakeLabel(UUserWidget& Owner, const FText& Text);

/** A dark, translucent background. */
UBorder& MakeBackground(UUserWidget& Owner);

/** A light frame around a field, since the engine's text is black by default. */
UBorder& MakeFieldFrame(UUserWidget& Owner, UWidget& Field);

} // namespace FlitmarkWidgets
