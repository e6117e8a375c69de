#pragma once

#include "CoreTypes.h"

#include <memory>
#include <utility>

/** A counted reference that may be empty: a thin wrapper around the standard one. */
template <class ObjectType>
class TSharedPtr : public std::shared_ptr<ObjectType>
{
public:
	using std::shared_ptr<ObjectType>::shared_ptr;
	TSharedPtr(std::shared_ptr<ObjectType> InPointer)
		: std::shared_ptr<ObjectType>(std::move(InPointer))
	{
	}

	bool IsValid() const { return this->get() != nullptr; }
	ObjectType* Get() const { return this->get(); }
	void Reset() { this->reset(); }
};

/** A counted reference that is never empty. */
template <class ObjectType>
class TSharedRef : public TSharedPtr<ObjectType>
{
public:
	explicit TSharedRef(std::shared_ptr<ObjectType> InPointer)
		: TSharedPtr<ObjectType>(std::move(InPointer))
	{
	}
};

template <class ObjectType, class... ArgumentTypes>
TSharedRef<ObjectType> MakeShared(ArgumentTypes&&... Arguments)
{
	return TSharedRef<ObjectType>(std::make_shared<ObjectType>(std::forward<ArgumentTypes>(Arguments)...));
}
