#pragma once

#include "CoreTypes.h"
#include "Files/ByteSource.h"

#include <memory>
#include <string>
#include <string_view>

namespace Flitmark
{

/** How a file's bytes are compressed. */
enum class ECompression : uint8
{
	None,
	Gzip,
	Zlib,
	/** Deflate without any header, as web servers send it; nothing in the bytes tells. */
	Deflate
};

/** By the first bytes: None, Gzip or Zlib. */
ECompression FindCompression(std::string_view InHead);

/** What the first bytes of a file unpack to, no more than InMost; empty if they are not compressed in that way. */
std::string UnpackHead(std::string_view InHead, ECompression InCompression, std::size_t InMost);

/** Another source's bytes, unpacked on the way in constant memory. Uncompressed ones pass through. */
class FUnpackedSource final : public IByteSource
{
public:
	/** InHead was read from the source already and comes first. InSource outlives this. */
	FUnpackedSource(IByteSource& InSource, std::string InHead, ECompression InCompression);
	~FUnpackedSource() override;

	std::size_t Read(char* OutData, std::size_t InSize) override;

	/** Of what is unpacked, which is not known for compressed bytes. */
	uint64 GetSize() const override;

	/** Also if the bytes unpack to absurdly many. */
	std::string GetError() const override;

	/** Why unpacking stopped before the end, for people; empty if it did not. What came before is good. */
	const std::string& GetDamage() const { return Damage; }

private:
	std::size_t ReadPacked(char* OutData, std::size_t InSize);
	std::size_t Unpack(char* OutData, std::size_t InSize);
	bool Refill();
	void OnStreamEnd();
	bool IsBomb() const;

	IByteSource& Source;
	std::string Head;
	std::size_t HeadPlace = 0;

	/** Null for bytes that are not compressed. */
	struct FInflater;
	std::unique_ptr<FInflater> Inflater;

	std::string Damage;
	std::string Error;
};

} // namespace Flitmark
