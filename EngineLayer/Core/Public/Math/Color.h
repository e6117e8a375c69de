#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"

/** An 8-bit sRGB color; alpha is linear coverage. */
struct FColor
{
	uint8 B;
	uint8 G;
	uint8 R;
	uint8 A;

	/** Leaves the components unset. */
	FColor() {}
	constexpr FColor(uint8 InR, uint8 InG, uint8 InB, uint8 InA = 255)
		: B(InB)
		, G(InG)
		, R(InR)
		, A(InA)
	{
	}
	constexpr bool operator==(const FColor&) const = default;

	/**
	 * Reads RGB, RRGGBB (both opaque) or RRGGBBAA, with or without a leading '#'. Any other number of digits yields a
	 * color of four zeros; a character that is not a hexadecimal digit counts as 0.
	 */
	static ENGINELAYER_API FColor FromHex(const FString& HexString);
	/** RRGGBBAA, uppercase. */
	ENGINELAYER_API FString ToHex() const;

	static ENGINELAYER_API const FColor White;
	static ENGINELAYER_API const FColor Black;
	static ENGINELAYER_API const FColor Transparent;
};

/** A linear color of floats; 0 to 1 is what a display shows. */
struct FLinearColor
{
	float R;
	float G;
	float B;
	float A;

	/** Linear value of each 8-bit sRGB value. */
	static ENGINELAYER_API const float sRGBToLinearTable[256];

	/** Leaves the components unset. */
	FLinearColor() {}
	constexpr FLinearColor(float InR, float InG, float InB, float InA = 1.0f)
		: R(InR)
		, G(InG)
		, B(InB)
		, A(InA)
	{
	}
	/** Through the sRGB table; alpha is kept as is. */
	FLinearColor(const FColor& Color)
		: R(sRGBToLinearTable[Color.R])
		, G(sRGBToLinearTable[Color.G])
		, B(sRGBToLinearTable[Color.B])
		, A(static_cast<float>(Color.A) * (1.0f / 255.0f))
	{
	}
	constexpr bool operator==(const FLinearColor&) const = default;

	/** Nearest 8-bit color, each component clamped to 0 to 1; the exact inverse of the constructor from FColor. */
	ENGINELAYER_API FColor ToFColorSRGB() const;

	static ENGINELAYER_API const FLinearColor White;
	static ENGINELAYER_API const FLinearColor Black;
	static ENGINELAYER_API const FLinearColor Transparent;
};
