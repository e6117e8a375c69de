#include "Blueprint/WidgetBlueprintBuilder.h"
#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/WrapBox.h"
#include "DanmakuSave.h"
#include "DanmakuTrack.h"
#include "DanmakuTrackManager.h"
#include "Files.h"
#include "UI_Danmaku.h"
#include "UI_DanmakuBar.h"
#include "UI_DanmakuNode.h"
#include "UI_DanmakuNodeSetting.h"
#include "UObject/GeneratedCppIncludes.h"

#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

using UECodeGen_Private::EPropertyGenKind;
using FLines = std::vector<std::string>;

std::string ToReference(const FProperty& Property)
{
	const std::string Class = Property.GetReferencedClass()->GetCppName();
	return Property.HasAnyFlags(CPF_TObjectPtr) ? "TObjectPtr<" + Class + ">" : Class + "*";
}

std::string ToType(const FProperty& Property)
{
	switch (Property.GetKind())
	{
	case EPropertyGenKind::Int32:
		return "int32";
	case EPropertyGenKind::Int64:
		return "int64";
	case EPropertyGenKind::Float:
		return "float";
	case EPropertyGenKind::Bool:
		return "bool";
	case EPropertyGenKind::String:
		return "FString";
	case EPropertyGenKind::Text:
		return "FText";
	case EPropertyGenKind::Enum:
		return ToUtf8(Property.GetTypeName());
	case EPropertyGenKind::Object:
		return ToReference(Property);
	case EPropertyGenKind::Class:
		return "TSubclassOf<" + Property.GetReferencedClass()->GetCppName() + ">";
	case EPropertyGenKind::Array:
		return "TArray<" + ToType(*Property.GetInner()) + ">";
	default:
		return "unexpected";
	}
}

std::string GetMeta(const FMetaData& MetaData, std::string_view Key)
{
	const FString* Value = MetaData.Find(Key);
	return Value != nullptr ? ToUtf8(*Value) : "(none)";
}

bool IsInstanced(const FProperty& Property)
{
	const FProperty& Reference = Property.GetInner() != nullptr ? *Property.GetInner() : Property;
	const bool bInstanced = Reference.HasAnyFlags(CPF_InstancedReference);
	EXPECT_EQ(GetMeta(Property.GetMetaData(), "EditInline"), bInstanced ? "true" : "(none)");
	return bInstanced;
}

/** "Name Type", and what the editor and the blueprint may do with it. */
std::string Describe(const FProperty& Property)
{
	std::string Line = ToUtf8(Property.GetName()) + " " + ToType(Property);
	if (Property.GetMetaData().Find("BindWidget") != nullptr)
	{
		Line += " bound";
	}
	if (Property.HasAnyFlags(CPF_Edit))
	{
		Line += Property.HasAnyFlags(CPF_DisableEditOnInstance) ? " defaults:" : " anywhere:";
		Line += GetMeta(Property.GetMetaData(), "Category");
	}
	EXPECT_FALSE(Property.HasAnyFlags(CPF_BlueprintVisible)) << Line;
	return Line + (IsInstanced(Property) ? " instanced" : "");
}

/** "Name(Type Name, ...)"; a constant reference has "const&" behind its type. */
std::string Describe(const UFunction& Function)
{
	std::string Line = ToUtf8(Function.GetName()) + "(";
	bool bHasOut = false;
	for (const FProperty& Parameter : Function.GetParameters())
	{
		const bool bReference = Parameter.HasAnyFlags(CPF_ReferenceParm);
		EXPECT_TRUE(Parameter.HasAnyFlags(CPF_Parm));
		EXPECT_EQ(Parameter.HasAnyFlags(CPF_ConstParm) && Parameter.HasAnyFlags(CPF_OutParm), bReference);
		const bool bString = Parameter.GetKind() == EPropertyGenKind::String;
		EXPECT_EQ(GetMeta(Parameter.GetMetaData(), "NativeConst"), bReference || bString ? "" : "(none)");
		bHasOut = bHasOut || bReference;
		Line += (Line.back() == '(' ? "" : ", ") + ToType(Parameter) + (bReference ? " const& " : " ");
		Line += ToUtf8(Parameter.GetName());
	}
	Line += ")";
	const uint32 Expected = Function.HasAnyFunctionFlags(FUNC_Delegate)
								? FUNC_MulticastDelegate | FUNC_Public | FUNC_Delegate
								: FUNC_Final | FUNC_Native | FUNC_Private | (bHasOut ? FUNC_HasOutParms : FUNC_None);
	EXPECT_EQ(Function.GetFunctionFlags(), Expected) << Line;
	return Line;
}

FLines DescribeProperties(const UClass* Class)
{
	FLines Lines;
	for (const std::unique_ptr<FProperty>& Property : Class->GetOwnProperties())
	{
		Lines.push_back(Describe(*Property));
	}
	return Lines;
}

FLines DescribeFunctions(const UClass* Class)
{
	FLines Lines;
	for (const std::unique_ptr<UFunction>& Function : Class->GetOwnFunctions())
	{
		EXPECT_EQ(Class->FindFunctionByName(Function->GetFName()), Function.get());
		Lines.push_back(Describe(*Function));
	}
	std::sort(Lines.begin(), Lines.end());
	return Lines;
}

constexpr uint32 PlainFlags = CLASS_Native | CLASS_MatchedSerializers | CLASS_RequiredAPI;
constexpr uint32 WidgetFlags =
	PlainFlags | CLASS_EditInlineNew | CLASS_DefaultToInstanced | CLASS_HasInstancedReference;

/** What the module tells the engine about a class of its own. */
struct FExpectedClass
{
	UClass* Class;
	const char* Name;
	const char* Base;
	const char* Header;
	uint32 Flags;
	FLines Properties;
	FLines Functions;
};

FLines CheckStateHandlers()
{
	FLines Handlers;
	for (const char* Box : {"Bottom", "C_00CD00", "C_4266BE", "C_FE0302", "C_FFFFFF"})
	{
		Handlers.push_back("On" + std::string(Box) + "CheckStateChanged(bool bIsChecked)");
	}
	Handlers.push_back("OnInputColorTextChanged(FText const& InText)");
	for (const char* Box : {"Normal", "Scroll", "Small", "Top"})
	{
		Handlers.push_back("On" + std::string(Box) + "CheckStateChanged(bool bIsChecked)");
	}
	return Handlers;
}

std::vector<FExpectedClass> GetExpectedClasses()
{
	return {
		{UDanmakuSave::StaticClass(),
		 "DanmakuSave",
		 "USaveGame",
		 "Public/DanmakuSave.h",
		 PlainFlags,
		 {"FontSize int32", "SpeedScale float", "bIsOpened bool"},
		 {}},
		{UDanmakuTrack::StaticClass(),
		 "DanmakuTrack",
		 "UObject",
		 "Public/DanmakuTrack.h",
		 PlainFlags | CLASS_HasInstancedReference,
		 {"Nodes TArray<TObjectPtr<UUI_DanmakuNode>> instanced"},
		 {"OnNodeEnded(UUI_DanmakuNode* Node)", "OnTick()"}},
		{UDanmakuTrackManager::StaticClass(),
		 "DanmakuTrackManager",
		 "UObject",
		 "Public/DanmakuTrackManager.h",
		 PlainFlags,
		 {"ScrollTracks TArray<TObjectPtr<UDanmakuTrack>>", "TopTracks TArray<TObjectPtr<UDanmakuTrack>>",
		  "BottomTracks TArray<TObjectPtr<UDanmakuTrack>>", "ReverseTracks TArray<TObjectPtr<UDanmakuTrack>>"},
		 {"OnDanmakuNodeCanceled(UUI_DanmakuNode* DanmakuNode)", "OnDanmakuNodeEnded(UUI_DanmakuNode* DanmakuNode)",
		  "OnDanmakuNodeStarted(UUI_DanmakuNode* DanmakuNode)",
		  "OnDanmakuNodeUserStarted(UUI_DanmakuNode* DanmakuNode)"}},
		{UUI_Danmaku::StaticClass(),
		 "UI_Danmaku",
		 "UUserWidget",
		 "Public/UI_Danmaku.h",
		 WidgetFlags,
		 {"DanmakuCanvasPanel TObjectPtr<UCanvasPanel> bound instanced",
		  "DanmakuBar TObjectPtr<UUI_DanmakuBar> instanced",
		  "DanmakuNodeClass TSubclassOf<UUI_DanmakuNode> defaults:UI",
		  "DanmakuNodeUserClass TSubclassOf<UUI_DanmakuNode> defaults:UI", "MediaPlayer TObjectPtr<UMediaPlayer>",
		  "TrackManager TObjectPtr<UDanmakuTrackManager>"},
		 {"OnDanmakuSend(FString InURL, int64 const& InTime, FString InContent, EDanmakuMode const& InMode, "
		  "int32 const& InFontSize, FString InFontColor)",
		  "OnOpenDanmakuButtonClicked(bool bIsChecked)"}},
		{UUI_DanmakuBar::StaticClass(),
		 "UI_DanmakuBar",
		 "UUserWidget",
		 "Public/UI_DanmakuBar.h",
		 WidgetFlags,
		 {"OpenDanmakuButton TObjectPtr<UCheckBox> bound instanced",
		  "DanmakuNodeSettingButton TObjectPtr<UButton> bound instanced",
		  "InputDanmakuText TObjectPtr<UEditableText> bound instanced",
		  "TextNum TObjectPtr<UTextBlock> bound instanced", "SendDanmakuButton TObjectPtr<UButton> bound instanced",
		  "MaxNumOFInputTex int32 anywhere:InputTextAndNumSetting", "MediaPlayer TObjectPtr<UMediaPlayer>",
		  "DanmakuNodeSetting TObjectPtr<UUI_DanmakuNodeSetting> instanced"},
		 {"OnInputDanmakuTextCommitted(FText const& Text, ETextCommit CommitMethod)",
		  "OnInputTextChanged(FText const& Text)", "OnSendDanmakuButtonClicked()", "OnSettingDanmakuButtonHovered()",
		  "OnSettingDanmakuButtonUnHovered()"}},
		{UUI_DanmakuNode::StaticClass(),
		 "UI_DanmakuNode",
		 "UUserWidget",
		 "Public/UI_DanmakuNode.h",
		 WidgetFlags,
		 {"NodeContentText TObjectPtr<UTextBlock> bound instanced",
		  "NodeCanvasPanelSlot TObjectPtr<UCanvasPanelSlot> instanced"},
		 {}},
		{UUI_DanmakuNodeSetting::StaticClass(),
		 "UI_DanmakuNodeSetting",
		 "UUserWidget",
		 "Public/UI_DanmakuNodeSetting.h",
		 WidgetFlags,
		 {"ModelBox UWrapBox* bound instanced",
		  "Scroll UCheckBox* bound instanced",
		  "Top UCheckBox* bound instanced",
		  "Bottom UCheckBox* bound instanced",
		  "FontBox UWrapBox* bound instanced",
		  "Small UCheckBox* bound instanced",
		  "Normal UCheckBox* bound instanced",
		  "SmallFontSize int32 anywhere:Setting",
		  "NormalFontSize int32 anywhere:Setting",
		  "ColorBox UWrapBox* bound instanced",
		  "C_FE0302 UCheckBox* bound instanced",
		  "C_00CD00 UCheckBox* bound instanced",
		  "C_4266BE UCheckBox* bound instanced",
		  "C_FFFFFF UCheckBox* bound instanced",
		  "InputColorText UEditableText* bound instanced",
		  "DisplayColorImage UImage* bound instanced",
		  "ModelCheckBoxes TArray<UCheckBox*> instanced",
		  "ModelSelect UCheckBox* instanced",
		  "FontCheckBoxes TArray<UCheckBox*> instanced",
		  "FontSelect UCheckBox* instanced",
		  "ColorCheckBoxes TArray<UCheckBox*> instanced",
		  "ColorSelect UCheckBox* instanced"},
		 CheckStateHandlers()},
	};
}

TEST(FRegistration, TellsTheClassesWhole)
{
	const std::vector<FExpectedClass> Classes = GetExpectedClasses();
	for (const FExpectedClass& Expected : Classes)
	{
		SCOPED_TRACE(Expected.Name);
		EXPECT_EQ(ToUtf8(Expected.Class->GetName()), Expected.Name);
		EXPECT_EQ(Expected.Class->GetCppName(), "U" + std::string(Expected.Name));
		EXPECT_EQ(Expected.Class->GetSuperClass()->GetCppName(), Expected.Base);
		EXPECT_EQ(Expected.Class->GetClassFlags(), Expected.Flags);
		EXPECT_EQ(DescribeProperties(Expected.Class), Expected.Properties);
		EXPECT_EQ(DescribeFunctions(Expected.Class), Expected.Functions);
		EXPECT_EQ(GetMeta(Expected.Class->GetMetaData(), "ModuleRelativePath"), Expected.Header);
		EXPECT_EQ(GetMeta(Expected.Class->GetMetaData(), "IncludePath"), std::string(Expected.Header).substr(7));
	}
	const FPackageContents Contents = FindPackageContents("/Script/Flitmark");
	EXPECT_EQ(Contents.Classes.size(), Classes.size());
	EXPECT_EQ(Contents.Enums.size(), 1u);
	EXPECT_EQ(Contents.Delegates.size(), 1u);
}

TEST(FRegistration, TellsTheSendEvent)
{
	const UFunction* Signature = FindPackageContents("/Script/Flitmark").Delegates.at(0);
	EXPECT_EQ(Describe(*Signature),
			  "OnSendDanmakuSignature__DelegateSignature(FString VideoURL, int64 const& SpawnTime, FString Content, "
			  "EDanmakuMode const& Mode, int32 const& FontSize, FString FontColor)");
	const UFunction* Handler = UUI_Danmaku::StaticClass()->FindFunctionByName(TEXT("OnDanmakuSend"));
	ASSERT_EQ(Handler->GetParameters().size(), Signature->GetParameters().size());
	for (std::size_t Index = 0; Index < Handler->GetParameters().size(); ++Index)
	{
		EXPECT_EQ(ToType(Handler->GetParameters()[Index]), ToType(Signature->GetParameters()[Index]));
	}
}

TEST(FRegistration, TellsTheModes)
{
	const UEnum* Modes = StaticEnum<EDanmakuMode>();
	const char* const Names[] = {"SCROLL", "TOP", "BOTTOM", "REVERSE"};
	ASSERT_GE(Modes->NumEnums(), 4);
	for (int32 Index = 0; Index < 4; ++Index)
	{
		EXPECT_EQ(ToUtf8(Modes->GetNameByIndex(Index).ToString()), "EDanmakuMode::" + std::string(Names[Index]));
		EXPECT_EQ(Modes->GetValueByIndex(Index), Index);
	}
	EXPECT_EQ(Modes->GetUnderlyingType(), "int32");
	EXPECT_TRUE(Modes->IsScoped());
}

TEST(FRegistration, TellsItsDocumentation)
{
	const auto GetTip = [](UClass* Class, const TCHAR* Name)
	{
		return GetMeta(Class->FindPropertyByName(Name)->GetMetaData(), "ToolTip");
	};
	EXPECT_EQ(GetMeta(UUI_DanmakuNode::StaticClass()->GetMetaData(), "ToolTip"),
			  "弹幕意外终止事件，如被移除、被隐藏等");
	EXPECT_EQ(GetTip(UUI_DanmakuNode::StaticClass(), TEXT("NodeCanvasPanelSlot")), "弹幕实际显示对应的画布插槽");
	const std::string Tracks = GetTip(UDanmakuTrackManager::StaticClass(), TEXT("ScrollTracks"));
	EXPECT_NE(Tracks.find("DanmakuCanvasPanel"), std::string::npos);
	const UClass* Bar = UUI_DanmakuBar::StaticClass();
	EXPECT_EQ(GetMeta(Bar->FindPropertyByName(TEXT("InputDanmakuText"))->GetMetaData(), "ToolTip"),
			  "UPROPERTY(meta = (BindWidget))\nTObjectPtr<UUI_InputTextAndNum> InputDanmakuText;");
}

/** Everything that a class wants bound, but for one: left out, or of a type that does not fit. */
std::string BuildWithout(UClass* Class, FName Missing, UClass* Instead)
{
	FWidgetBlueprintBuilder Builder(TEXT("WBP_Test"), Class);
	Builder.Add(UWrapBox::StaticClass(), TEXT("TestRoot"));
	for (const std::unique_ptr<FProperty>& Property : Class->GetOwnProperties())
	{
		UClass* Type = Property->GetFName() == Missing ? Instead : Property->GetReferencedClass();
		if (Property->GetMetaData().Find("BindWidget") != nullptr && Type != nullptr)
		{
			Builder.Add(Type, Property->GetFName(), TEXT("TestRoot"));
		}
	}
	std::string Error;
	return Builder.Build(Error) != nullptr ? "built" : Error;
}

TEST(FRegistration, RefusesABlueprintThatDoesNotFit)
{
	int32 NumBound = 0;
	for (const FExpectedClass& Expected : GetExpectedClasses())
	{
		for (const std::unique_ptr<FProperty>& Property : Expected.Class->GetOwnProperties())
		{
			if (Property->GetMetaData().Find("BindWidget") == nullptr)
			{
				continue;
			}
			++NumBound;
			UClass* Type = Property->GetReferencedClass();
			UClass* Other = Type == UButton::StaticClass() ? UCheckBox::StaticClass() : UButton::StaticClass();
			for (UClass* Instead : {static_cast<UClass*>(nullptr), Other})
			{
				const std::string Error = BuildWithout(Expected.Class, Property->GetFName(), Instead);
				for (const std::string& Named :
					 {ToUtf8(Property->GetName()), Type->GetCppName(), Expected.Class->GetCppName()})
				{
					EXPECT_NE(Error.find(Named), std::string::npos) << Error;
				}
			}
			EXPECT_EQ(BuildWithout(Expected.Class, NAME_None, nullptr), "built");
		}
	}
	EXPECT_EQ(NumBound, 1 + 5 + 1 + 14);
}

} // namespace

} // namespace Flitmark
