#pragma once

#include "CoreTypes.h"

/** What a module's library hands to the engine. */
class ENGINELAYER_API IModuleInterface
{
public:
	virtual ~IModuleInterface() = default;

	virtual void StartupModule() {}
	virtual void PreUnloadCallback() {}
	virtual void PostLoadCallback() {}
	virtual void ShutdownModule() {}
	virtual bool SupportsDynamicReloading() { return true; }
	virtual bool SupportsAutomaticShutdown() { return true; }
	virtual bool IsGameModule() const { return false; }
};

/** A module with no behavior of its own. */
class FDefaultModuleImpl : public IModuleInterface
{
};
