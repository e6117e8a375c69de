#pragma once

#include "CoreTypes.h"
#include "Files/ByteSource.h"
#include "Files/UnpackedSource.h"
#include "Formats/CommentFormat.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace Flitmark
{

/** The bytes of a comment file, unpacked if they are compressed, with what its beginning says about it. */
class FCommentSource final : public IByteSource
{
public:
	/** Null with OutError, which names the file and the reason, where it cannot be opened or is a folder. */
	static std::unique_ptr<FCommentSource> Open(const std::filesystem::path& InFile, std::string& OutError);

	/** Any source of bytes, which outlives this. Its beginning is read at once. */
	explicit FCommentSource(IByteSource& InSource);

	/** The first DetectionSize bytes, which Read gives too. */
	std::string_view GetHead() const { return Head; }

	/** Null if it is in no known format. */
	const FCommentFormat* GetFormat() const { return Format; }

	std::size_t Read(char* OutData, std::size_t InSize) override;
	uint64 GetSize() const override { return Unpacked->GetSize(); }
	std::string GetError() const override { return Unpacked->GetError(); }

	/** Why compressed bytes could not be unpacked to their end, for people; mostly empty. */
	const std::string& GetDamage() const { return Unpacked->GetDamage(); }

private:
	void Begin(IByteSource& InSource);

	/** Null if the source is somebody else's. */
	std::unique_ptr<FFileSource> File;
	std::unique_ptr<FUnpackedSource> Unpacked;
	std::string Head;
	std::size_t HeadPlace = 0;
	const FCommentFormat* Format = nullptr;

	explicit FCommentSource(std::unique_ptr<FFileSource> InFile);
};

} // namespace Flitmark
