#pragma once

#include "CoreTypes.h"

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace Flitmark
{

/** Where bytes come from, piece by piece. */
class IByteSource
{
public:
	IByteSource() = default;
	virtual ~IByteSource() = default;
	IByteSource(const IByteSource&) = delete;
	IByteSource& operator=(const IByteSource&) = delete;

	/**
	 * Writes up to InSize bytes to OutData and returns how many; 0 at the end and after an error. It may give fewer than
	 * asked for at any time.
	 */
	virtual std::size_t Read(char* OutData, std::size_t InSize) = 0;

	/** How many bytes there are in all; 0 where that is not known. Only a hint. */
	virtual uint64 GetSize() const { return 0; }

	/** Why reading stopped before the end; empty where it did not. */
	virtual std::string GetError() const { return {}; }

	/** The next bytes, InSize of them unless the end comes first. */
	std::string ReadUpTo(std::size_t InSize);
};

/** Bytes in memory, which must outlive it. */
class FMemorySource final : public IByteSource
{
public:
	/** InPieceSize: the most that one Read gives. */
	explicit FMemorySource(std::string_view InBytes, std::size_t InPieceSize = std::string_view::npos);

	std::size_t Read(char* OutData, std::size_t InSize) override;
	uint64 GetSize() const override { return Size; }

private:
	std::string_view Rest;
	const uint64 Size;
	const std::size_t PieceSize;
};

/** A file's bytes. */
class FFileSource final : public IByteSource
{
public:
	/** Null with OutError, which names the file and the reason, where it cannot be opened or is a folder. */
	static std::unique_ptr<FFileSource> Open(const std::filesystem::path& InFile, std::string& OutError);

	std::size_t Read(char* OutData, std::size_t InSize) override;
	uint64 GetSize() const override { return Size; }
	std::string GetError() const override { return Error; }

private:
	explicit FFileSource(std::FILE* InFile)
		: File(InFile, &std::fclose)
	{
	}

	std::unique_ptr<std::FILE, int (*)(std::FILE*)> File;
	uint64 Size = 0;
	std::string Error;
};

} // namespace Flitmark
