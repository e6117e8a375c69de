using UnrealBuildTool;

public class Flitmark : ModuleRules
{
	public Flitmark(ReadOnlyTargetRules Target) : base(Target)
	{
		// Lane counts depend on how each float operation rounds, so the compiler must not reassociate them.
		FPSemantics = FPSemanticsMode.Precise;
		// Shared precompiled headers are built with the target's float semantics, so a module with different ones can't
		// use them.
		PCHUsage = PCHUsageMode.NoSharedPCHs;
		PrivatePCHHeaderFile = "Private/FlitmarkPCH.h";

		// Slate and SlateCore: UMG's headers, which the public ones include, include theirs.
		PublicDependencyModuleNames.AddRange(
			new[] { "Core", "CoreUObject", "Engine", "UMG", "MediaAssets", "Slate", "SlateCore" });
		PrivateDependencyModuleNames.AddRange(new[] { "Json" });
	}
}
