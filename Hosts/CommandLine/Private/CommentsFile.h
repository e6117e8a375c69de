#pragma once

#include "CommentDocument.h"

#include <optional>
#include <string>

namespace Flitmark
{

/** A comment document and the text it was read from, which is what the overlay is handed. */
struct FCommentsFile
{
	FString Text;
	FCommentDocument Document;
};

/** "FILE:LINE:COLUMN: what is wrong" of a text that is no comment document. */
std::string DescribeFault(const std::string& InPath, const FDocumentFault& InFault);

/** Empty with OutError set where the file cannot be read or is no comment document. */
std::optional<FCommentsFile> LoadComments(const std::string& InPath, std::string& OutError);

} // namespace Flitmark
