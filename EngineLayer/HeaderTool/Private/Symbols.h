#pragma once

#include "Model.h"

/** A type to which the headers may refer. */
struct FSymbol
{
	/** A class's base; empty for UObject and for anything but a class. */
	std::string Base;
	/** The header that declares it. */
	std::string Include;
	/** 'U' for a class, 'E' for an enumeration, 'F' for a delegate. */
	char Prefix = 'U';
};

using FSymbols = std::map<std::string, FSymbol>;
