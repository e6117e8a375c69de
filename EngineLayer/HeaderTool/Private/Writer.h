#pragma once

#include "HeaderTool.h"
#include "Resolver.h"

/** `X.generated.h`: what GENERATED_BODY expands to, by line, and StaticEnum for each enumeration. */
std::string WriteGeneratedHeader(const FModuleInfo& Module, const FHeader& Header);

/** `X.gen.cpp`: native entry points, records, and the object that registers them when the library is loaded. */
std::string WriteGeneratedSource(const FModuleInfo& Module, const FHeader& Header, const FSymbols& Symbols);
