#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace Flitmark
{

/** A text as a JSON string, with its quotes; UTF-8 whatever the text is. */
std::string QuoteJson(std::string_view InText);

/** Comments as our document writes them, one behind the other in one buffer. Whatever is in them, it is UTF-8. */
class FCommentJson
{
public:
	/** Valid until something is added. */
	std::string_view GetText() const { return {Buffer.data(), Size}; }

	/** Keeps the buffer. */
	void Clear() { Size = 0; }

	/** Plain text between comments. */
	void Add(std::string_view InText);

	/** A JSON object, or the comment's Source where it has one. */
	void AddComment(const FServiceComment& InComment);

private:
	char* MakeRoom(std::size_t InSize);
	char* PutDate(char* OutText, int64 InUnixSeconds);

	std::vector<char> Buffer;
	std::size_t Size = 0;

	/** Comments of one day come together often: days since 1970, and `year.month.day-`. */
	int64 Day = std::numeric_limits<int64>::min();
	std::string DayText;

	/** Texts that cannot be copied as they are. */
	std::string NameStorage;
	std::string TextStorage;
};

} // namespace Flitmark
