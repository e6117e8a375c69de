#pragma once

#include "Files/ByteSource.h"
#include "ImportSink.h"
#include "JsonProbe.h"
#include "JsonSchema.h"

#include <string>

namespace Flitmark
{

/** Reads comments of a schema. */
void ReadJson(IByteSource& InSource, IJsonSchema& InSchema, FImportSink& OutSink);

/** A format in JSON. The schema's `static bool Matches(const FJsonNode&)` says which node is an entry of it. */
template <class SchemaType>
constexpr FCommentFormat MakeJsonFormat(std::string_view InName, std::string_view InTitle)
{
	return {InName, InTitle, EFormatSyntax::Json,
			[](const FFileHead& InHead) { return ProbeJson(InHead.Text, &SchemaType::Matches); },
			[](IByteSource& InSource, FImportSink& OutSink, std::string&)
			{
				SchemaType Schema;
				ReadJson(InSource, Schema, OutSink);
				return true;
			}};
}

} // namespace Flitmark
