#pragma once

#include "Model.h"

#include <initializer_list>
#include <string_view>

using FList = std::vector<std::string>;

/** Replaces `$1`, `$2`... in the template. */
std::string Fill(std::string_view Template, std::initializer_list<std::string> Values);

std::string Join(const FList& List, const std::string& Separator, const std::string& IfEmpty);

/** A string literal, with octal escapes, because unlike hexadecimal ones they end after three digits. */
std::string Literal(const std::string& Text);

/** Writes the records of one class, delegate or enumeration, as constants in a struct. */
class FRecordWriter
{
public:
	/** The constants so far. */
	const std::string& GetText() const { return Text; }

	/** Writes the pairs; returns the initializer of the list. */
	std::string WriteMetaData(const FDeclared& Record, const std::string& Name);

	/** Members of Class, or parameters if it is empty; returns "array, count". */
	std::string WriteProperties(const std::vector<FProperty>& Properties, const std::string& Name,
								const std::string& Class);

	/** Returns "array, count". */
	std::string WriteFunctions(const FClass& Class);

	/** Writes the parameters; returns the function's initializer. */
	std::string WriteFunction(const FFunction& Function, const std::string& Name, const std::string& Native);

	/** Returns "array, count"; the array is null if there are no entries. */
	std::string WriteArray(const std::string& Type, const std::string& Name, const FList& Entries);

private:
	std::string Text;
};
