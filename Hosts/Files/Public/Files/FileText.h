#pragma once

#include "CoreMinimal.h"
#include "Files/ByteSource.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace Flitmark
{

/** The bytes of a whole file; empty with OutError, naming file and reason, where it cannot be read. */
std::optional<std::string> LoadBytes(const std::filesystem::path& InFile, std::string& OutError);

/** The same for the rest of an open source; InName is what the error calls it. */
std::optional<std::string> LoadBytes(IByteSource& InSource, const std::string& InName, std::string& OutError);

/** A text file: UTF-8, or UTF-16 with its mark; wrong bytes become U+FFFD. Errors as LoadBytes. */
std::optional<FString> LoadText(const std::filesystem::path& InFile, std::string& OutError);

/** As LoadText decodes a file's bytes. */
FString FromUtf8(std::string_view InText);
/** Half of a surrogate pair becomes U+FFFD. */
std::string ToUtf8(const FString& InText);

} // namespace Flitmark
