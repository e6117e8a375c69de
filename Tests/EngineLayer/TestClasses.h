#pragma once

#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTeardown.h"
#include "Components/Button.h"
#include "Components/EditableText.h"
#include "Engine/World.h"
#include "GameFramework/SaveGame.h"
#include "UObject/Class.h"

#include <functional>
#include <string>
#include <vector>

/** Stand-ins for a module's classes, registered by records like those that the header tool writes. */
namespace LayerTest
{

std::string ToUtf8(const FString& Text);
/** Uppercase, because a name's case depends on who first used it in the process. */
std::string NameOf(const UObject& Object);

/** What has happened, in order, since the test's fixture was made. */
std::vector<std::string>& GetLog();
/** Returns the log so far, and clears it. */
std::vector<std::string> TakeLog();

} // namespace LayerTest

/** Subscribes to every event of a control, and holds objects. */
class UTestListener : public UObject
{
	DECLARE_LAYER_CLASS(UTestListener, UObject)

public:
	explicit UTestListener(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	void BeginDestroy() override;

	void OnPlain();
	void OnBool(bool bValue);
	void OnText(const FText& Text);
	void OnCommitted(const FText& Text, ETextCommit::Type CommitMethod);
	void OnNumber(int32 Number);

	static void execOnPlain(UObject* Context, FFrame& Stack, RESULT_DECL);
	static void execOnBool(UObject* Context, FFrame& Stack, RESULT_DECL);
	static void execOnText(UObject* Context, FFrame& Stack, RESULT_DECL);
	static void execOnCommitted(UObject* Context, FFrame& Stack, RESULT_DECL);

	/** Runs in each call, after it was logged. */
	std::function<void()> Reaction;
	/** Runs when the destruction begins. */
	std::function<void()> Dying;

	TObjectPtr<UObject> Held;
	TArray<TObjectPtr<UObject>> HeldList;

private:
	void Log(const std::string& What);
};

/** A user widget that logs what happens to it. */
class UTestWidget : public UUserWidget
{
	DECLARE_LAYER_CLASS(UTestWidget, UUserWidget)

public:
	explicit UTestWidget(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** Runs in each tick, after it was logged. */
	std::function<void()> Ticked;

protected:
	void NativeOnInitialized() override { Log("initialized"); }
	void NativePreConstruct() override { Log("preconstruct"); }
	void NativeConstruct() override { Log("construct"); }
	void NativeDestruct() override { Log("destruct"); }
	void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override;
	void NativeOnMouseEnter(const FGeometry&, const FPointerEvent&) override { Log("enter"); }
	void NativeOnMouseLeave(const FPointerEvent&) override { Log("leave"); }

private:
	void Log(const char* What);
};

/** A user widget with members bound to a blueprint's widgets, and an editable default. */
class UTestBoundWidget : public UTestWidget
{
	DECLARE_LAYER_CLASS(UTestBoundWidget, UTestWidget)

public:
	explicit UTestBoundWidget(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	TObjectPtr<UButton> Go;
	TObjectPtr<UEditableText> Field;
	int32 Limit = 7;
};

/** A record with a property of each kind that can be saved. */
class UTestSave : public USaveGame
{
	DECLARE_LAYER_CLASS(UTestSave, USaveGame)

public:
	explicit UTestSave(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	int32 Count = 0;
	int64 Ticks = 0;
	float Scale = 0.f;
	double Exact = 0.0;
	bool bOpen = false;
	FString Title;
};

/** A record that adds something that can't be saved. */
class UTestUnkeptSave : public UTestSave
{
	DECLARE_LAYER_CLASS(UTestUnkeptSave, UTestSave)

public:
	explicit UTestUnkeptSave(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	TObjectPtr<UObject> Friend;
};
