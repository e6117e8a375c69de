#pragma once

#include "Model.h"

/** A type that the headers may refer to. */
struct FSymbol
{
	/** Of a class; empty for UObject and for what is no class. */
	std::string Base;
	/** The header that declares it. */
	std::string Include;
	/** 'U' for a class, 'E' for an enumeration, 'F' for a delegate. */
	char Prefix = 'U';
};

using FSymbols = std::map<std::string, FSymbol>;
