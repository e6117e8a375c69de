#pragma once

#include <cstddef>
#include <cstdint>

using int8 = std::int8_t;
using int16 = std::int16_t;
using int32 = std::int32_t;
using int64 = std::int64_t;
using uint8 = std::uint8_t;
using uint16 = std::uint16_t;
using uint32 = std::uint32_t;
using uint64 = std::uint64_t;

/** Strings are UTF-16, as the engine's are. */
using TCHAR = char16_t;
#define TEXT_PASTE(Literal) u##Literal
#define TEXT(Literal) TEXT_PASTE(Literal)

/**
 * Libraries hide their symbols by default, so that a missing export breaks the build here as it would in the engine.
 */
#define DLLEXPORT __attribute__((visibility("default")))
#define DLLIMPORT __attribute__((visibility("default")))
#define ENGINELAYER_API DLLEXPORT

#define FORCEINLINE inline __attribute__((always_inline))
#define UE_NODISCARD [[nodiscard]]

constexpr int32 INDEX_NONE = -1;
constexpr int32 MIN_int32 = INT32_MIN;
constexpr int32 MAX_int32 = INT32_MAX;
constexpr int64 MIN_int64 = INT64_MIN;
constexpr int64 MAX_int64 = INT64_MAX;
