#include "HeaderToolTestKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using testing::HasSubstr;
using testing::Not;

struct FAccepted
{
	const char* Name;
	std::string Header;
	/** Texts that X.generated.h and X.gen.cpp together must contain, and must not. */
	std::vector<std::string> Written;
	std::vector<std::string> Absent = {};
};

void PrintTo(const FAccepted& Case, std::ostream* Out)
{
	*Out << Case.Name;
}

class AcceptedHeaders : public testing::TestWithParam<FAccepted>
{
};

TEST_P(AcceptedHeaders, AreWrittenWhole)
{
	const FGenerated Generated = Generate(GetParam().Header);
	ASSERT_THAT(Generated.Errors, testing::IsEmpty());
	ASSERT_EQ(Generated.Files.size(), 2u);
	const std::string Text = Generated.Files[0].Text + Generated.Files[1].Text;
	for (const std::string& Each : GetParam().Written)
	{
		EXPECT_THAT(Text, HasSubstr(Each));
	}
	for (const std::string& Each : GetParam().Absent)
	{
		EXPECT_THAT(Text, Not(HasSubstr(Each)));
	}
}

const std::string SomeProperty = "\"Value\", EPropertyGenKind::Int32, ";
const std::string SomeMember = "UPROPERTY() int32 Value;";

/** The way a language construct is written must not matter. */
const FAccepted Syntax[] = {
	{"NoMarks", "struct FPlain { int A; };\n", {"FID_Sample_Public_Sample_h"}, {"UClass* "}},
	{"ByteOrderMark", "\xEF\xBB\xBF" + WithMembers(SomeMember), {SomeProperty, "_Sample_h_6_GENERATED_BODY"}},
	{"WindowsLineEnds",
	 "#pragma once\r\n#include \"Sample.generated.h\"\r\nUCLASS()\r\nclass USample : public UObject\r\n{\r\n"
	 "\tGENERATED_BODY()\r\n\t// One\r\n\t// Two\r\n\tUPROPERTY()\r\n\tint32 Value;\r\n};",
	 {SomeProperty, "_Sample_h_6_GENERATED_BODY", "\"One\\nTwo\""},
	 {"\\r", "\\015"}},
	{"NoFinalNewLine", WithInclude("UENUM() enum class EMode : uint8 { A };"), {"\"EMode::A\"", "\"uint8\""}},
	{"CommentsAnywhere",
	 WithMembers("UPROPERTY(/* a */ EditAnywhere // }\n, Category /**/ = \"C\") int32 /* { */ Value /* ( */ = 1;"),
	 {SomeProperty + "CPF_Edit,", "{\"Category\", \"C\"}"}},
	{"MarksInComments",
	 WithMembers("// UPROPERTY() int32 Gone;\n/* UFUNCTION() void GoneToo(); */\n" + SomeMember),
	 {SomeProperty},
	 {"\"Gone"}},
	{"CommentGoesOnInTheNextLine",
	 WithMembers("// a \\\nUPROPERTY() int32 Gone;\n" + SomeMember),
	 {SomeProperty},
	 {"\"Gone\""}},
	{"LineContinuations", WithMembers("UPROP\\\nERTY() int32 Val\\\nue;"), {SomeProperty}},
	{"LinesAreCountedOverContinuations",
	 WithInclude("// a \\\n b\nUCLASS()\nclass UA : public UObject\n{\n\tGENERATED_BODY()\n};\n"),
	 {"_Sample_h_8_GENERATED_BODY"}},
	{"RawLiteral",
	 WithMembers("const char* Text = R\"x(\" } UPROPERTY( \\\n)y\" )x\";\n" + SomeMember),
	 {SomeProperty}},
	{"RawLiteralWithPrefix", WithMembers("const char8_t* Text = u8R\"(\"})\";\n" + SomeMember), {SomeProperty}},
	{"LiteralsWithBrackets",
	 WithMembers("char C = '\"'; char D = '{'; char E = '\\''; const char* F = \"}\\\"{\"; auto G = u'('; " +
				 SomeMember),
	 {SomeProperty}},
	{"DigitSeparators",
	 WithMembers("int64 A = 1'000'000; int32 B = 0xFF'FF; double C = 1.5e+3'0; char D = 'x';\n" + SomeMember),
	 {SomeProperty}},
	{"NestedTemplates",
	 WithMembers("TMap<FName, TArray<TSharedPtr<int>>> Map;\nUPROPERTY()\nTArray<TObjectPtr<UImage>> Images;"),
	 {"Images_Inner = {\"Images\", EPropertyGenKind::Object, CPF_TObjectPtr | CPF_ExportObject | "
	  "CPF_InstancedReference, 0,",
	  "\"Images\", EPropertyGenKind::Array, CPF_TObjectPtr | CPF_ExportObject | CPF_InstancedReference, "
	  "offsetof(USample, Images)"}},
	{"DefaultValues",
	 WithMembers("UPROPERTY() FString Text = FString(TEXT(\"a;b}\"));\nUPROPERTY() TArray<int32> List{1, "
				 "2};\nUPROPERTY() bool bB = (1 < 2);\n"
				 "UFUNCTION() void OnIt(int32 A = Make<int, 3>(1, {2}), bool bC = true);"),
	 {"\"Text\", EPropertyGenKind::String", "\"List\", EPropertyGenKind::Array", "\"bB\", EPropertyGenKind::Bool",
	  "Function_OnIt_Parameters, 2,"}},
	{"Attributes",
	 WithInclude("UCLASS()\nclass [[nodiscard]] alignas(16) SAMPLE_API USample final : public UObject, public "
				 "IOther<int>, private FThird\n{\nGENERATED_BODY()\n"
				 "UPROPERTY() [[maybe_unused]] int32 Value;\n};"),
	 {SomeProperty, "CLASS_MatchedSerializers | CLASS_Native | CLASS_RequiredAPI"}},
	{"ForwardDeclarations",
	 WithInclude("class UFoo;\nenum class EBar : int;\nnamespace N { class UFar; }\nUCLASS()\nclass UFoo : public "
				 "UObject\n{\nGENERATED_BODY()\n" +
				 SomeMember + "\n};"),
	 {SomeProperty}},
	{"LeftOutByIfZero",
	 WithMembers("#if 0\nUPROPERTY() int32 Gone; it's { \" broken\n#else\n" + SomeMember + "\n#endif"),
	 {SomeProperty},
	 {"\"Gone\""}},
	{"LeftOutByIfOne",
	 WithMembers("#if 1\n" + SomeMember + "\n#elif X\nUPROPERTY() int32 Gone;\n#endif"),
	 {SomeProperty},
	 {"\"Gone\""}},
	{"NestedConditions",
	 WithMembers("#if 0\n#ifdef X\nUPROPERTY() int32 Gone;\n#endif\n#else\n" + SomeMember + "\n#endif"),
	 {SomeProperty},
	 {"\"Gone\""}},
	{"UnknownCondition",
	 WithMembers("#if WITH_EDITOR\nvoid A() {\n#else\nvoid A(int) {\n#endif\n}\n" + SomeMember),
	 {SomeProperty}},
	{"Directives", WithMembers("#define BRACE { \\\n { \"\n#pragma region \"x\n" + SomeMember), {SomeProperty}},
	{"MacrosAmongMembers",
	 WithMembers("DECLARE_EVENT_OneParam(USample, FOnIt, int32)\nUE_NONCOPYABLE(X);\n" + SomeMember),
	 {SomeProperty}},
	{"InlineBodies",
	 WithMembers("void A() { if (x) { y(\"}\"); } }\nint B() const { return [] { return 1; }(); }\n"
				 "UFUNCTION() void OnIt() { char C = '}'; }\n" +
				 SomeMember),
	 {SomeProperty, "&USample::execOnIt"}},
	{"OtherDeclarations",
	 WithMembers(
		 "friend class UOther;\nusing Super2 = UObject;\ntypedef int FInt;\nstruct FInner { int A; private: int B; };\n"
		 "enum EKind : int { One, Two };\ntemplate <class T> void G(T&& A = {}) {}\nbool operator==(const USample&) "
		 "const;\n" +
		 SomeMember),
	 {SomeProperty}},
	{"ManyLines",
	 WithMembers("UPROPERTY(\n\tEditAnywhere,\n\tCategory\n\t=\n\t\"A\"\n\t\"B\"\n)\nint32\n\tValue\n\t;"),
	 {SomeProperty + "CPF_Edit,", "\"AB\""}},
	{"SpecifierValues",
	 WithMembers("UPROPERTY(EditAnywhere, Category = A|B, meta = (ClampMin = -1.5, Tip = \"a \\\"q\\\" ?\\\\\", Flag)) "
				 "int32 Value;"),
	 {"{\"Category\", \"A|B\"}", "{\"ClampMin\", \"-1.5\"}", "{\"Tip\", \"a \\\"q\\\" \\?\\\\\"}", "{\"Flag\", \"\"}"}},
	{"EnumeratorsWithValues",
	 WithInclude("UENUM(meta = (A = \"b\"))\nenum class EMode : int32\n{\n\tFirst UMETA(DisplayName = \"One, two\") = "
				 "(1 << 2),\n\tSecond [[deprecated]] = First + 0x1'0,\n};"),
	 {"{\"EMode::First\", static_cast<int64>(EMode::First)}", "{\"EMode::Second\", ",
	  "{\"First.DisplayName\", \"One, two\"}", "enum class EMode : int32;", "SAMPLE_API UEnum* StaticEnum<EMode>();"}},
};

/** What the records say. */
const FAccepted Records[] = {
	{"DelegateWithoutParameters",
	 WithInclude("DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnIt);\nUCLASS()\nclass UA : public "
				 "UObject\n{\n\tGENERATED_BODY()\n\tFOnIt OnIt;\n};"),
	 {"{\"OnIt__DelegateSignature\", nullptr, FUNC_MulticastDelegate | FUNC_Public | FUNC_Delegate, nullptr, 0,"}},
	{"DelegateWithValuesHasNoOutParms",
	 WithInclude("DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams(FOnIt, const FString&, Url, int64, Time);"),
	 {"FUNC_MulticastDelegate | FUNC_Public | FUNC_Delegate,", "\"Url\", EPropertyGenKind::String, CPF_Parm,",
	  "\"Time\", EPropertyGenKind::Int64, CPF_Parm,"}},
	{"ConstantReferences",
	 WithMembers("UFUNCTION() void OnIt(const FText& A, FText const& B, const FString& C, const int32 D);"),
	 {"FUNC_Final | FUNC_Native | FUNC_Private | FUNC_HasOutParms",
	  "\"A\", EPropertyGenKind::Text, CPF_Parm | CPF_ConstParm | CPF_OutParm | CPF_ReferenceParm,",
	  "\"B\", EPropertyGenKind::Text, CPF_Parm | CPF_ConstParm | CPF_OutParm | CPF_ReferenceParm,",
	  "\"C\", EPropertyGenKind::String, CPF_Parm,", "\"D\", EPropertyGenKind::Int32, CPF_Parm | CPF_ConstParm,",
	  "Function_OnIt_Parameters_C_MetaData[] = {\n\t\t{\"NativeConst\", \"\"}", "Z_Param_B = Stack.StepParam<FText>();",
	  "->OnIt(Z_Param_A, Z_Param_B, Z_Param_C, Z_Param_D);"}},
	{"EngineEnumeration",
	 WithMembers("UFUNCTION() void OnIt(ETextCommit::Type Method);"),
	 {"EPropertyGenKind::Enum, CPF_Parm, 0, nullptr, nullptr, \"ETextCommit\","}},
	{"WidgetParameterIsInstanced",
	 WithMembers("UFUNCTION() void OnIt(USample* Node, UWorld* World);"),
	 {"\"Node\", EPropertyGenKind::Object, CPF_Parm | CPF_InstancedReference, 0, &USample::StaticClass",
	  "\"World\", EPropertyGenKind::Object, CPF_Parm, 0, &UWorld::StaticClass", "CLASS_RequiredAPI, sizeof"}},
	{"Access",
	 WithMembers("UFUNCTION() void A();\nprotected: UFUNCTION() virtual void B();\npublic: UFUNCTION() SAMPLE_API void "
				 "C() override;\nUFUNCTION() inline void D(void) {}\nprivate: UPROPERTY() TObjectPtr<class UImage> E;"),
	 {"FUNC_Final | FUNC_Native | FUNC_Private,", "FUNC_Native | FUNC_Protected,",
	  "{\"C\", &USample::execC, FUNC_Native | FUNC_Public,", "FUNC_Final | FUNC_Native | FUNC_Public, nullptr, 0"}},
	{"EditSpecifiers",
	 WithMembers("UPROPERTY(EditAnywhere) int32 A;\nUPROPERTY(EditDefaultsOnly, Category=\"UI\") TSubclassOf<UWidget> "
				 "B;\npublic: UPROPERTY(BlueprintReadWrite) float C;"),
	 {"\"A\", EPropertyGenKind::Int32, CPF_Edit,",
	  "\"B\", EPropertyGenKind::Class, CPF_Edit | CPF_DisableEditOnInstance, offsetof(USample, B), "
	  "&UWidget::StaticClass",
	  "\"C\", EPropertyGenKind::Float, CPF_BlueprintVisible,", "{\"Category\", \"Sample\"}"}},
	{"ForBlueprints",
	 WithInclude(
		 "UENUM(BlueprintType) enum class EMode : uint8 { A };\nDECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnIt, "
		 "FLinearColor, Color);\nUCLASS(Blueprintable)\nclass UA : public UObject\n{\n\tGENERATED_BODY()\npublic:\n"
		 "UFUNCTION(BlueprintCallable, Category = \"C\") bool Load(FTimespan Time, UWorld* World = nullptr);\n"
		 "UFUNCTION(BlueprintPure) EMode Get() const;\nUPROPERTY(BlueprintAssignable) FOnIt OnIt;\n"
		 "UPROPERTY(Transient, BlueprintReadOnly) int32 B;\n};"),
	 {"{\"IsBlueprintBase\", \"true\"}", "Enum_MetaData[] = {\n\t\t{\"BlueprintType\", \"true\"}",
	  "{\"Load\", &UA::execLoad, FUNC_Final | FUNC_Native | FUNC_Public | FUNC_BlueprintCallable,",
	  "\"Time\", EPropertyGenKind::Struct, CPF_Parm, 0, nullptr, nullptr, \"FTimespan\"",
	  "{\"CPP_Default_World\", \"None\"}",
	  "\"ReturnValue\", EPropertyGenKind::Bool, CPF_Parm | CPF_OutParm | CPF_ReturnParm,",
	  "*static_cast<bool*>(Z_Param__Result) = static_cast<UA*>(Context)->Load(Z_Param_Time, Z_Param_World);",
	  "FUNC_Public | FUNC_BlueprintCallable | FUNC_BlueprintPure | FUNC_Const,",
	  "\"OnIt\", EPropertyGenKind::MulticastDelegate, CPF_BlueprintAssignable | CPF_InstancedReference, offsetof(UA, "
	  "OnIt), "
	  "nullptr, nullptr, \"FOnIt\"",
	  "\"B\", EPropertyGenKind::Int32, CPF_Transient | CPF_BlueprintVisible | CPF_BlueprintReadOnly,"}},
	{"RawPointersAndInstances",
	 WithMembers("UPROPERTY(meta=(BindWidget)) UImage* Picture = nullptr;\nUPROPERTY() UMediaPlayer* Player;"),
	 {"\"Picture\", EPropertyGenKind::Object, CPF_ExportObject | CPF_InstancedReference,",
	  "\"Player\", EPropertyGenKind::Object, CPF_None,", "{\"EditInline\", \"true\"}",
	  "#include \"Components/Image.h\"", "CLASS_RequiredAPI | CLASS_HasInstancedReference"}},
	{"NotExported",
	 WithInclude("UCLASS()\nclass UA : public USaveGame\n{\n\tGENERATED_BODY()\n};"),
	 {"&USaveGame::StaticClass, CLASS_MatchedSerializers | CLASS_Native, sizeof(UA)"},
	 {"CLASS_RequiredAPI", "CLASS_HasInstancedReference"}},
	{"OwnDefaultConstructor",
	 WithMembers("public: USample();\n~USample();"),
	 {"USample(); }"},
	 {"FObjectInitializer::Get()"}},
	{"OwnInitializerConstructor",
	 WithMembers("public: USample(const FObjectInitializer& Initializer);"),
	 {"USample(X); }"},
	 {"FObjectInitializer::Get()"}},
	{"NoConstructor",
	 WithMembers("TFunction<USample()> Make;"),
	 {"USample(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get())", "USample(X); }"}},
	{"BlockToolTip",
	 WithMembers("/**\n\t * First line.\n\t *   Indented  \n\t *\n\t * Last.\n\t */\n" + SomeMember),
	 {"{\"ToolTip\", \"First line.\\n  Indented\\n\\nLast.\"}", "{\"Comment\", \"/**\\n\\011 * First line."}},
	{"ShortBlockToolTip", WithMembers("/** One\n * Two */ " + SomeMember), {"{\"ToolTip\", \"One\\nTwo\"}"}},
	{"LineToolTip",
	 WithMembers("//UPROPERTY()\n//\tint32 Old;\n" + SomeMember),
	 {"{\"ToolTip\", \"UPROPERTY()\\n int32 Old;\"}", "{\"Comment\", \"//UPROPERTY()\\n//\\011int32 Old;\\n\"}"}},
	{"ChineseToolTip",
	 WithMembers("/** 弹幕 */\n" + SomeMember),
	 {"{\"ToolTip\", \"\\345\\274\\271\\345\\271\\225\"}"}},
	{"OnlyTheNearestComment",
	 WithMembers("/** Far */\n\n// Near\n\n// Nearest\n" + SomeMember),
	 {"{\"ToolTip\", \"Nearest\"}"},
	 {"Far", "\"Near\""}},
	{"CommentOfTheLineBefore",
	 WithMembers("int A; // of A\n" + SomeMember + " //~ Section\n// -----\nUPROPERTY() bool bB;"),
	 {SomeProperty},
	 {"ToolTip"}},
};

std::string NameOf(const testing::TestParamInfo<FAccepted>& Info)
{
	return Info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(Syntax, AcceptedHeaders, testing::ValuesIn(Syntax), NameOf);
INSTANTIATE_TEST_SUITE_P(Records, AcceptedHeaders, testing::ValuesIn(Records), NameOf);

TEST(SeveralHeaders, KnowEachOther)
{
	const std::string Ahead =
		"#pragma once\n#include \"A.generated.h\"\nclass UB;\nUCLASS()\nclass UA : public UB\n{\n\tGENERATED_BODY()\n"
		"\tUPROPERTY() TObjectPtr<UB> Other;\n\tUPROPERTY() EKind Kind;\n};";
	const std::string Behind = "#pragma once\n#include \"B.generated.h\"\nUENUM() enum class EKind : int32 { One "
							   "};\nUCLASS()\nclass UB : public UUserWidget\n{\n"
							   "\tGENERATED_BODY()\n\tUPROPERTY(meta = (BindWidget)) UA* Inner;\n};";
	const FGenerated Generated =
		GenerateReflection({"M", "/Script/M", ""}, {{"M/Public/A.h", Ahead}, {"M/Private/Deep/B.h", Behind}});
	ASSERT_THAT(Generated.Errors, testing::IsEmpty());
	ASSERT_EQ(Generated.Files.size(), 4u);
	EXPECT_EQ(Generated.Files[1].Path, "A.gen.cpp");
	EXPECT_THAT(Generated.Files[1].Text, HasSubstr("#include \"Deep/B.h\""));
	EXPECT_THAT(
		Generated.Files[1].Text,
		HasSubstr("CPF_TObjectPtr | CPF_ExportObject | CPF_InstancedReference, offsetof(UA, Other), &UB::StaticClass"));
	EXPECT_THAT(Generated.Files[2].Text, HasSubstr("FID_M_Private_Deep_B_h_7_GENERATED_BODY"));
}

TEST(SeveralHeaders, MayBeOfAnotherModule)
{
	const std::string Base =
		"#pragma once\n#include \"Base.generated.h\"\nUCLASS()\nclass BASE_API UBase : public UUserWidget\n"
		"{\n\tGENERATED_BODY()\n\tUPROPERTY() int32 Count;\n};";
	const auto Run = [&Base](const std::string& Members)
	{
		return GenerateReflection(
			{"M", "/Script/M", ""},
			{{"M/Public/A.h", "#pragma once\n#include \"A.generated.h\"\nUCLASS()\nclass UA : public "
							  "UBase\n{\n\tGENERATED_BODY()\n" +
								  Members + "\n};"}},
			{{"Other/Public/Base.h", Base}});
	};
	const FGenerated Generated = Run("UPROPERTY(meta = (BindWidget)) UBase* Inner;");
	ASSERT_THAT(Generated.Errors, testing::IsEmpty());
	ASSERT_EQ(Generated.Files.size(), 2u) << "nothing is written for the other module";
	EXPECT_THAT(Generated.Files[1].Text, HasSubstr("#include \"Base.h\""));
	EXPECT_THAT(Run("UPROPERTY() UMissing* Inner;").Errors, testing::SizeIs(1));
}

} // namespace
