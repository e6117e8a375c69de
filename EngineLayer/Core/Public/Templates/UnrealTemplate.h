#pragma once

#include <type_traits>
#include <utility>

/** Allows the value to be moved from. */
template <class T>
constexpr std::remove_reference_t<T>&& MoveTemp(T&& Object)
{
	static_assert(std::is_lvalue_reference_v<T>, "a temporary moves by itself");
	static_assert(!std::is_const_v<std::remove_reference_t<T>>, "what is constant cannot be moved");
	return std::move(Object);
}
