#pragma once

#include "HeaderTool.h"
#include "Resolver.h"

/** `X.generated.h`: what GENERATED_BODY stands for, by line, and StaticEnum of each enumeration. */
std::string WriteGeneratedHeader(const FModuleInfo& Module, const FHeader& Header);

/** `X.gen.cpp`: native entries, records, and the object that announces them when the library is loaded. */
std::string WriteGeneratedSource(const FModuleInfo& Module, const FHeader& Header, const FSymbols& Symbols);
