#include "HeaderToolTestKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

struct FRejected
{
	const char* Name;
	std::string Header;
	/** "LINE: message" */
	std::string Error;
};

void PrintTo(const FRejected& Case, std::ostream* Out)
{
	*Out << Case.Name;
}

class RejectedHeaders : public testing::TestWithParam<FRejected>
{
};

TEST_P(RejectedHeaders, TellWhereAndHowToMend)
{
	const FGenerated Generated = Generate(GetParam().Header);
	EXPECT_THAT(Generated.Errors, testing::ElementsAre("Sample/Public/Sample.h:" + GetParam().Error));
	EXPECT_THAT(Generated.Files, testing::IsEmpty());
}

std::string WithEnum(const std::string& Text)
{
	return WithInclude("UENUM()\n" + Text);
}

std::string WithClass(const std::string& Text)
{
	return WithInclude("UCLASS()\n" + Text);
}

const std::string TakeOneOf =
	"take bool, int32, int64, float, double, FString, FText, FName, FTimespan, FLinearColor, a UENUM, a pointer or "
	"TObjectPtr to a UCLASS, a TSubclassOf, or a TArray of one of these";
const std::string NotServed = "the macros are UCLASS, UENUM, UPROPERTY, UFUNCTION, GENERATED_BODY and "
							  "DECLARE_DYNAMIC_MULTICAST_DELEGATE...; remove it";
const std::string OutsideClass = " outside a UCLASS: mark the class around it with UCLASS() or remove this macro";

const FRejected Text[] = {
	{"OpenComment", WithMembers("/* never"), "7: this comment is never closed: add `*/`"},
	{"OpenLiteral", WithMembers("const char* A = \"x;"), "7: this literal is never closed: add `\"`"},
	{"OpenCharacter", WithMembers("char A = 'x;"), "7: this literal is never closed: add `'`"},
	{"OpenRawLiteral", WithMembers("auto A = R\"x(abc)\";"), "7: this raw literal is never closed: add `)x\"`"},
	{"OpenBrace", WithMembers("void A() {"), "5: `{` is never closed: add its closing one"},
	{"ExtraBrace", WithMembers("}"), "8: `}` closes nothing: remove it or add its opening one"},
	{"CrossedBrackets", WithMembers("int A(int B[);"),
	 "7: `)` comes before the end of `[` in line 7: close that first"},
	{"OpenCondition", WithMembers("#ifdef X"), "7: `#ifdef X` is never closed: add `#endif`"},
	{"EndWithoutCondition", WithMembers("#endif"), "7: `#endif` without `#if`: remove it or add the `#if`"},
	{"MarkUnderCondition", WithMembers("#if WITH_EDITOR\nUPROPERTY() int32 A;\n#endif"),
	 "8: `UPROPERTY` under `#if WITH_EDITOR`: macros may be under no condition but `#if 0` and `#if 1`; move it out "
	 "(against double inclusion use `#pragma once`)"},
	{"MarkUnderElse", WithMembers("#ifdef X\n#else\nUPROPERTY() int32 A;\n#endif"),
	 "9: `UPROPERTY` under `#ifdef X`: macros may be under no condition but `#if 0` and `#if 1`; move it out "
	 "(against double inclusion use `#pragma once`)"},
	{"IncludeGuard", "#ifndef X\n#define X\n" + WithMembers("") + "#endif\n",
	 "5: `UCLASS` under `#ifndef X`: macros may be under no condition but `#if 0` and `#if 1`; move it out (against "
	 "double inclusion use `#pragma once`)"},
};

const FRejected Marks[] = {
	{"PropertyInPlainClass", WithInclude("class FPlain\n{\n\tUPROPERTY()\n\tint32 A;\n};"),
	 "5: `UPROPERTY`" + OutsideClass},
	{"FunctionAtFileScope", WithInclude("UFUNCTION()\nvoid A();"), "3: `UFUNCTION`" + OutsideClass},
	{"BodyInPlainClass", WithInclude("struct FPlain\n{\n\tGENERATED_BODY()\n};"), "5: `GENERATED_BODY`" + OutsideClass},
	{"PropertyInInnerStruct", WithMembers("struct FInner\n{\n\tUPROPERTY() int32 A;\n};"),
	 "9: `UPROPERTY`" + OutsideClass},
	{"ClassInNamespace",
	 WithInclude("namespace N\n{\nUCLASS()\nclass UA : public UObject\n{\n\tGENERATED_BODY()\n};\n}"),
	 "5: `UCLASS` must be at file scope: move it out of the brackets around it"},
	{"EnumInClass", WithMembers("UENUM() enum class EA : int32 { B };"),
	 "7: `UENUM` must be at file scope: move it out of the brackets around it"},
	{"DelegateInClass", WithMembers("DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnIt);"),
	 "7: `DECLARE_DYNAMIC_MULTICAST_DELEGATE` must be at file scope: move it out of the brackets around it"},
	{"Struct", WithInclude("USTRUCT()\nstruct FA\n{\n};"), "3: `USTRUCT` is not supported here: " + NotServed},
	{"SingleDynamicDelegate", WithInclude("DECLARE_DYNAMIC_DELEGATE(FOnIt);"),
	 "3: `DECLARE_DYNAMIC_DELEGATE` is not supported here: " + NotServed},
	{"NoInclude", "#pragma once\nUENUM()\nenum class EA : int32 { B };",
	 "2: `#include \"Sample.generated.h\"` must be the last include, before the first macro"},
	{"OtherInclude", "#pragma once\n#include \"Other.generated.h\"\nUENUM()\nenum class EA : int32 { B };",
	 "2: `#include \"Sample.generated.h\"` must be the last include, before the first macro"},
	{"IncludeNotLast", WithInclude("#include \"Other.h\"\nUENUM()\nenum class EA : int32 { B };"),
	 "3: `#include \"Sample.generated.h\"` must be the last include, before the first macro"},
	{"IncludeAfterMark", "UENUM()\nenum class EA : int32 { B };\n#include \"Sample.generated.h\"\n",
	 "3: `#include \"Sample.generated.h\"` must be the last include, before the first macro"},
};

const FRejected Classes[] = {
	{"NoBody", WithClass("class UA : public UObject\n{\n};"),
	 "4: `UA` lacks GENERATED_BODY(): put it first in the class"},
	{"BodyTwice", WithMembers("GENERATED_BODY()"), "7: GENERATED_BODY() must come exactly once, first in the class"},
	{"OldBody", WithClass("class UA : public UObject\n{\n\tGENERATED_UCLASS_BODY()\n};"),
	 "6: `GENERATED_UCLASS_BODY` is not supported here: " + NotServed},
	{"BodyAfterMembers", WithClass("class UA : public UObject\n{\n\tUPROPERTY() int32 A;\n\tGENERATED_BODY()\n};"),
	 "7: GENERATED_BODY() must come exactly once, first in the class"},
	{"NoBase", WithClass("class UA\n{\n\tGENERATED_BODY()\n};"),
	 "5: `UA` has no base: derive it from UObject or a class derived from that"},
	{"UnknownBase", WithClass("class UA : public UUnknown\n{\n\tGENERATED_BODY()\n};"),
	 "4: base `UUnknown` of `UA` is not a known class: mark it with UCLASS() and give its header to the same run"},
	{"PrivateBase", WithClass("class UA : UObject\n{\n\tGENERATED_BODY()\n};"),
	 "4: expected `public` before the base class, found `UObject`"},
	{"OwnBase", WithClass("class UA : public UA\n{\n\tGENERATED_BODY()\n};"),
	 "4: base `UA` of `UA` does not derive from UObject: choose one that does"},
	{"ForwardDeclaration", WithClass("class UA;"),
	 "4: `UA` has no base: derive it from UObject or a class derived from that"},
	{"NotAClass", WithClass("struct UA : public UObject\n{\n\tGENERATED_BODY()\n};"),
	 "4: expected `class` after UCLASS(...), found `struct`"},
	{"NoSemicolon", WithClass("class UA : public UObject\n{\n\tGENERATED_BODY()\n}"),
	 "7: expected `;` after `UA`, found the end of the file"},
	{"Prefix", WithClass("class Thing : public UObject\n{\n\tGENERATED_BODY()\n};"),
	 "4: `Thing` must begin with `U`: rename it"},
	{"EngineName", WithClass("class UImage : public UWidget\n{\n\tGENERATED_BODY()\n};"),
	 "4: `UImage` is declared already, in Components/Image.h: rename one"},
	{"SpecifierUnknown", WithInclude("UCLASS(Blueprintble)\nclass UA : public UObject\n{\n\tGENERATED_BODY()\n};"),
	 "3: `Blueprintble` is not a specifier of UCLASS here: it takes BlueprintType, Blueprintable, meta"},
};

const FRejected Properties[] = {
	{"UnknownSpecifier", WithMembers("UPROPERTY(EditAnywere) int32 A;"),
	 "7: `EditAnywere` is not a specifier of UPROPERTY here: it takes BlueprintAssignable, BlueprintReadOnly, "
	 "BlueprintReadWrite, Category, EditAnywhere, "
	 "EditDefaultsOnly, Transient, meta"},
	{"SpecifierTwice", WithMembers("UPROPERTY(EditAnywhere, EditAnywhere) int32 A;"),
	 "7: `EditAnywhere` is given twice: remove one"},
	{"TwoEditSpecifiers", WithMembers("UPROPERTY(EditAnywhere, EditDefaultsOnly) int32 A;"),
	 "7: `A` has two edit specifiers: keep EditAnywhere or EditDefaultsOnly"},
	{"CategoryWithoutValue", WithMembers("UPROPERTY(EditAnywhere, Category) int32 A;"),
	 "7: expected `=` after `Category`, found `)`"},
	{"MissingComma", WithMembers("UPROPERTY(EditAnywhere Category = \"A\") int32 A;"),
	 "7: expected `,` or `)`, found `Category`"},
	{"MetaWithoutBrackets", WithMembers("UPROPERTY(meta = BindWidget) UImage* A;"),
	 "7: expected `(` before metadata, found `BindWidget`"},
	{"Unreflectable", WithMembers("UPROPERTY()\nTMap<FName, int32> A;"),
	 "8: type `TMap<FName,int32>` of `A` cannot be reflected: " + TakeOneOf},
	{"UnreflectableWord", WithMembers("UPROPERTY() unsigned long A;"),
	 "7: type `unsigned long` of `A` cannot be reflected: " + TakeOneOf},
	{"ArrayOfArrays", WithMembers("UPROPERTY() TArray<TArray<int32>> A;"),
	 "7: type `TArray<TArray<int32>>` of `A` cannot be reflected: " + TakeOneOf},
	{"PointerToUnknownClass", WithMembers("UPROPERTY() UUnknown* A;"),
	 "7: type `UUnknown*` of `A` cannot be reflected: `UUnknown` is not a known class: mark it with UCLASS() and "
	 "give its header to the same run"},
	{"WrapperOfUnknownClass", WithMembers("UPROPERTY() TArray<TObjectPtr<UUnknown>> A;"),
	 "7: type `TArray<TObjectPtr<UUnknown>>` of `A` cannot be reflected: `UUnknown` is not a known class: mark it "
	 "with UCLASS() and give its header to the same run"},
	{"PointerToNumber", WithMembers("UPROPERTY() int32* A;"),
	 "7: type `int32*` of `A` cannot be reflected: " + TakeOneOf},
	{"ObjectByValue", WithMembers("UPROPERTY() UImage A;"),
	 "7: type `UImage` of `A` cannot be reflected: " + TakeOneOf},
	{"Constant", WithMembers("UPROPERTY() const int32 A = 1;"),
	 "7: `A` is const or a reference: a UPROPERTY must be neither"},
	{"Reference", WithMembers("UPROPERTY() int32& A;"), "7: `A` is const or a reference: a UPROPERTY must be neither"},
	{"Static", WithMembers("UPROPERTY() static int32 A;"),
	 "7: `A` must be a plain member to be a UPROPERTY: static, constexpr, mutable, volatile and inline cannot be "
	 "reflected"},
	{"FixedArray", WithMembers("UPROPERTY() int32 A[4];"),
	 "7: `A` is an array of fixed size, a bit field or one of several names: declare one plain member after each "
	 "UPROPERTY(), an array as TArray"},
	{"BitField", WithMembers("UPROPERTY() bool bA : 1;"),
	 "7: `bA` is an array of fixed size, a bit field or one of several names: declare one plain member after each "
	 "UPROPERTY(), an array as TArray"},
	{"TwoNames", WithMembers("UPROPERTY() int32 A, B;"),
	 "7: `A` is an array of fixed size, a bit field or one of several names: declare one plain member after each "
	 "UPROPERTY(), an array as TArray"},
	{"NoSemicolon", WithMembers("UPROPERTY() int32 A\nUPROPERTY() int32 B;"),
	 "8: expected `Type Name;` after UPROPERTY(...), found `UPROPERTY`"},
	{"OnNothing", WithMembers("UPROPERTY()"), "8: expected `Type Name;` after UPROPERTY(...), found `}`"},
	{"OnFunction", WithMembers("UPROPERTY() void A();"), "7: expected `Type Name;` after UPROPERTY(...), found `(`"},
	{"PrivateForBlueprints", WithMembers("UPROPERTY(BlueprintReadWrite) int32 A;"),
	 "7: `A` is private but visible to blueprints: remove the specifier or make it protected or public"},
	{"AssignableNumber", WithMembers("UPROPERTY(BlueprintAssignable) int32 A;"),
	 "7: `A` is BlueprintAssignable but no dynamic multicast delegate: remove the specifier"},
	{"BindNumber", WithMembers("UPROPERTY(meta = (BindWidget)) int32 A;"),
	 "7: `A` is a BindWidget but does not refer to a widget: give it a class derived from UWidget"},
	{"BindObject", WithMembers("UPROPERTY(meta = (BindWidget)) TObjectPtr<UMediaPlayer> A;"),
	 "7: `A` is a BindWidget but does not refer to a widget: give it a class derived from UWidget"},
	{"BindArray", WithMembers("UPROPERTY(meta = (BindWidget)) TArray<UImage*> A;"),
	 "7: `A` is a BindWidget but does not refer to a widget: give it a class derived from UWidget"},
	{"BindInObject",
	 WithClass("class UA : public UObject\n{\n\tGENERATED_BODY()\n\tUPROPERTY(meta = (BindWidget)) UImage* A;\n};"),
	 "7: `A` is a BindWidget in `UA`, which is not a user widget: derive that from UUserWidget"},
	{"SameName", WithMembers("UPROPERTY() int32 A;\nUPROPERTY() bool A;"),
	 "8: `A` is declared already, at Sample.h:7: rename one (neither letter case nor parameters tell reflected names "
	 "apart)"},
	{"SameNameButCase", WithMembers("UPROPERTY() int32 Value;\nUPROPERTY() bool vALUE;"),
	 "8: `vALUE` is declared already, at Sample.h:7: rename one (neither letter case nor parameters tell reflected "
	 "names apart)"},
	{"SameNameInBase",
	 WithMembers("UPROPERTY() int32 A;\n};\nUCLASS()\nclass UB : public USample\n{\n\tGENERATED_BODY()\n\tUPROPERTY() "
				 "int32 A;"),
	 "13: `A` is declared already, at Sample.h:7: rename one (neither letter case nor parameters tell reflected names "
	 "apart)"},
};

const FRejected Functions[] = {
	{"UnreflectableResult", WithMembers("UFUNCTION() FVector2D A();"),
	 "7: type `FVector2D` of `ReturnValue` cannot be reflected: " + TakeOneOf},
	{"ReferenceResult", WithMembers("UFUNCTION() const FString& A();"),
	 "7: the result is const or a reference: return a value"},
	{"Static", WithMembers("UFUNCTION() static void A();"), "7: `A` must be a plain member function to be a UFUNCTION"},
	{"Template", WithMembers("UFUNCTION() template <class T> void A(T B);"),
	 "7: `A` must be a plain member function to be a UFUNCTION"},
	{"DelegateParameter",
	 WithInclude(
		 "DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnIt);\nUCLASS()\nclass UA : public UObject\n{\nGENERATED_BODY()\n"
		 "UFUNCTION() void A(FOnIt B);\n};"),
	 "8: `B` is a dynamic multicast delegate, which no parameter can be"},
	{"Overloaded", WithMembers("UFUNCTION() void A();\nUFUNCTION() void A(int32 B);"),
	 "8: `A` is declared already, at Sample.h:7: rename one (neither letter case nor parameters tell reflected names "
	 "apart)"},
	{"NameOfProperty", WithMembers("UPROPERTY() int32 A;\nUFUNCTION() void A();"),
	 "8: `A` is declared already, at Sample.h:7: rename one (neither letter case nor parameters tell reflected names "
	 "apart)"},
	{"UnreflectableParameter", WithMembers("UFUNCTION()\nvoid A(const FString& B,\n\tFVector2D C);"),
	 "9: type `FVector2D` of `C` cannot be reflected: " + TakeOneOf},
	{"OutParameter", WithMembers("UFUNCTION() void A(int32& B);"),
	 "7: `B` is a reference that is not const: take it by value or constant reference"},
	{"MovedParameter", WithMembers("UFUNCTION() void A(FText&& B);"),
	 "7: type `FText&&` of `B` cannot be reflected: " + TakeOneOf},
	{"WrappedParameter", WithMembers("UFUNCTION() void A(TObjectPtr<UImage> B);"),
	 "7: `B` takes a TObjectPtr: a parameter must be a plain pointer"},
	{"UnnamedParameter", WithMembers("UFUNCTION() void A(const FText&);"),
	 "7: expected `Type Name` for each parameter of `A`, found `)`"},
	{"SameParameterTwice", WithMembers("UFUNCTION() void A(int32 B, bool B);"),
	 "7: `B` is declared already, at Sample.h:7: rename one (neither letter case nor parameters tell reflected names "
	 "apart)"},
	{"MarkedParameter", WithMembers("UFUNCTION() void A(UPARAM(ref) int32& B);"),
	 "7: expected `Type Name` for each parameter of `A`, found `UPARAM`"},
	{"NoSemicolon", WithMembers("UFUNCTION() void A()\nUFUNCTION() void B();"),
	 "8: expected `;` or a body after `A(...)`, found `UFUNCTION`"},
	{"OnMember", WithMembers("UFUNCTION() int32 A;"), "7: expected `Type Name(...);` after UFUNCTION(...), found `;`"},
	{"UnknownSpecifier", WithMembers("UFUNCTION(Exec) void A();"),
	 "7: `Exec` is not a specifier of UFUNCTION here: it takes BlueprintCallable, BlueprintPure, Category, meta"},
};

const FRejected EnumsAndDelegates[] = {
	{"PlainEnum", WithEnum("enum EA : int32 { B };"),
	 "4: expected `class` of `enum class Name : int32 {` (or `: uint8`) after UENUM(), found `EA`"},
	{"NoUnderlyingType", WithEnum("enum class EA { B };"),
	 "4: expected `:` of `enum class Name : int32 {` (or `: uint8`) after UENUM(), found `{`"},
	{"OtherUnderlyingType", WithEnum("enum class EA : int64 { B };"),
	 "4: expected `int32` of `enum class Name : int32 {` (or `: uint8`) after UENUM(), found `int64`"},
	{"NoEnumerators", WithEnum("enum class EA : int32 {};"), "4: `EA` has no enumerators: give it one"},
	{"SameEnumerator", WithEnum("enum class EA : int32\n{\n\tB,\n\tC,\n\tb\n};"),
	 "8: `b` is declared already, at Sample.h:6: rename one (neither letter case nor parameters tell reflected names "
	 "apart)"},
	{"EnumPrefix", WithEnum("enum class Mode : int32 { A };"), "4: `Mode` must begin with `E`: rename it"},
	{"EnumTwice", WithEnum("enum class EA : int32 { B };\nUENUM()\nenum class EA : int32 { C };"),
	 "6: `EA` is declared already, in Sample.h: rename one"},
	{"CountOfParameters", WithInclude("DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams(FOnIt, int32, A);"),
	 "3: `DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams` does not fit `FOnIt`: take the macro for 1 parameters"},
	{"TypeWithoutName", WithInclude("DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnIt, int32);"),
	 "3: expected `,` between type and name of a parameter of `FOnIt`, found `)`"},
	{"DelegateType", WithInclude("DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnIt, FVector2D, A);"),
	 "3: type `FVector2D` of `A` cannot be reflected: " + TakeOneOf},
	{"DelegatePrefix", WithInclude("DECLARE_DYNAMIC_MULTICAST_DELEGATE(OnIt);"),
	 "3: `OnIt` must begin with `F`: rename it"},
};

std::string NameOf(const testing::TestParamInfo<FRejected>& Info)
{
	return Info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(Text, RejectedHeaders, testing::ValuesIn(Text), NameOf);
INSTANTIATE_TEST_SUITE_P(Marks, RejectedHeaders, testing::ValuesIn(Marks), NameOf);
INSTANTIATE_TEST_SUITE_P(Classes, RejectedHeaders, testing::ValuesIn(Classes), NameOf);
INSTANTIATE_TEST_SUITE_P(Properties, RejectedHeaders, testing::ValuesIn(Properties), NameOf);
INSTANTIATE_TEST_SUITE_P(Functions, RejectedHeaders, testing::ValuesIn(Functions), NameOf);
INSTANTIATE_TEST_SUITE_P(EnumsAndDelegates, RejectedHeaders, testing::ValuesIn(EnumsAndDelegates), NameOf);

TEST(RejectedRun, TellsEveryFaultOfEveryHeader)
{
	const std::string Fine = "#include \"A.generated.h\"\nUENUM() enum class EA : int32 { B };";
	const std::string Faulty = "#include \"B.generated.h\"\nUCLASS()\nclass UB : public "
							   "UObject\n{\n\tGENERATED_BODY()\n\tUPROPERTY() FWrong A;\n\tUPROPERTY() FWrong B;\n};\n"
							   "UENUM() enum class EA : int32 { C };";
	const FGenerated Generated = GenerateReflection({"M", "/Script/M", ""}, {{"A.h", Fine}, {"B.h", Faulty}});
	EXPECT_THAT(Generated.Errors, testing::ElementsAre(testing::HasSubstr("B.h:9: `EA` is declared already, in A.h"),
													   testing::StartsWith("B.h:6: "), testing::StartsWith("B.h:7: ")));
	EXPECT_THAT(Generated.Files, testing::IsEmpty());
}

} // namespace
