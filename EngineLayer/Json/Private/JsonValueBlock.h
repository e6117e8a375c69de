#pragma once

#include "Dom/JsonValue.h"
#include "JsonDocument.h"

/**
 * The storage of values made together: pointers to values and objects share ownership of the block, which keeps the
 * document alive.
 */
struct FJsonValueBlock : public std::enable_shared_from_this<FJsonValueBlock>
{
	explicit FJsonValueBlock(std::shared_ptr<FJsonDocument> InDocument)
		: Document(std::move(InDocument))
	{
	}

	/** The value of one word. */
	static TSharedPtr<FJsonValue> MakeValue(const std::shared_ptr<FJsonDocument>& Document, uint32 Word);
	/** The values in an array. */
	static TArray<TSharedPtr<FJsonValue>> MakeArray(const std::shared_ptr<FJsonDocument>& Document, uint32 Array);

	/** A pointer that shares ownership of this block. */
	template <class ViewType>
	TSharedPtr<ViewType> Share(ViewType& View)
	{
		return std::shared_ptr<ViewType>(shared_from_this(), &View);
	}

	std::shared_ptr<FJsonDocument> Document;
	std::vector<FJsonValue> Values;

private:
	void Add(uint32 Word) { Values.push_back(FJsonValue(Document->GetType(Word), this, Word)); }
};
