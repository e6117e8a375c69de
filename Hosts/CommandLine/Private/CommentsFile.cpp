#include "CommentsFile.h"

#include "Files.h"

namespace Flitmark
{

std::string DescribeFault(const std::string& InPath, const FDocumentFault& InFault)
{
	if (InFault.Line > 0)
	{
		return InPath + ":" + std::to_string(InFault.Line) + ":" + std::to_string(InFault.Column) + ": " +
			   InFault.Reason;
	}
	return InPath + ": " + InFault.Reason +
		   "; a comment document is a JSON object like {\"datas\": [{\"danmaku_content\": \"Hello\", ...}, ...]}";
}

std::optional<FCommentsFile> LoadComments(const std::string& InPath, std::string& OutError)
{
	std::optional<FString> Text = LoadText(InPath, OutError);
	if (!Text)
	{
		return std::nullopt;
	}
	FCommentsFile Comments{std::move(*Text), {}};
	Comments.Document = FCommentDocument::Read(Comments.Text);
	if (Comments.Document.GetFault())
	{
		OutError = DescribeFault(InPath, *Comments.Document.GetFault());
		return std::nullopt;
	}
	return Comments;
}

} // namespace Flitmark
