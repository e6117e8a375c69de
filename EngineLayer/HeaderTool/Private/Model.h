#pragma once

#include "Tokenizer.h"

#include <map>
#include <string>
#include <vector>

/** What every record has. */
struct FDeclared
{
	std::string Name;
	int Line = 0;
	/** Sorted by key, as the engine's tool writes it. */
	std::map<std::string, std::string> MetaData;
	/** Names of EPropertyFlags, EFunctionFlags or EClassFlags. */
	std::vector<std::string> Flags;
};

struct FType
{
	/** An enumerator of EPropertyGenKind. */
	std::string Kind;
	/** The type as which a parameter is read. */
	std::string CppName;
	/** The class to which an object or class reference is restricted, or else the enumeration. */
	std::string Referred;
	bool bObjectPtr = false;
	bool bConst = false;
	bool bReference = false;
	/** An array's element type: one entry. */
	std::vector<FType> Inner;
};

/** A member of a class or a parameter of a function. */
struct FProperty : FDeclared
{
	/** The type as written. */
	std::vector<FToken> Spelling;
	/** "Private", "Protected" or "Public". */
	std::string Access;
	/** Type and InnerFlags are set by the resolver. */
	FType Type;
	/** For an array's elements. */
	std::vector<std::string> InnerFlags;

	/** A return value rather than a parameter. */
	bool IsResult() const { return !Flags.empty() && Flags.back() == "CPF_ReturnParm"; }
};

struct FFunction : FDeclared
{
	/** The return value, if any, comes last. */
	std::vector<FProperty> Parameters;
};

struct FClass : FDeclared
{
	std::string Base;
	/** The export macro before the name; empty if there is none. */
	std::string Api;
	/** Line of GENERATED_BODY; 0 if there is none. */
	int BodyLine = 0;
	bool bDefaultConstructor = false;
	bool bInitializerConstructor = false;
	std::vector<FProperty> Properties;
	std::vector<FFunction> Functions;
};

struct FEnum : FDeclared
{
	std::string UnderlyingType;
	std::vector<FDeclared> Enumerators;
};

struct FHeader
{
	std::string Path;
	/** "UI_DanmakuNode". */
	std::string Stem;
	/** "Public/UI_DanmakuNode.h". */
	std::string ModuleRelativePath;
	/** "UI_DanmakuNode.h". */
	std::string IncludePath;
	std::vector<FClass> Classes;
	std::vector<FEnum> Enums;
	/** Signatures of dynamic delegates, under the delegate's name. */
	std::vector<FFunction> Delegates;
};
