#include "JsonFormat.h"

namespace Flitmark
{

namespace
{

FFormatProbe Probe(const FFileHead& InHead)
{
	const FFormatProbe OfList =
		ProbeJson(InHead.Text, [](const FJsonNode& InNode) { return InNode.Depth == 1 && InNode.HasList("datas"); });
	const FFormatProbe Any{FFormatProbe::EResult::Possible, 0};
	return OfList.Result == FFormatProbe::EResult::No && IsJsonObject(InHead.Text) ? Any : OfList;
}

bool Read(IByteSource& InSource, FImportSink& OutSink, std::string& OutError)
{
	return ReadJson(InSource, *MakeOwnForm(), OutSink, OutError);
}

} // namespace

const FCommentFormat OwnDocumentFormat = {"document", "comment document", EFormatSyntax::Json, Probe, Read};

} // namespace Flitmark
