using UnrealBuildTool;

public class Flitmark : ModuleRules
{
	public Flitmark(ReadOnlyTargetRules Target) : base(Target)
	{
		PCHUsage = PCHUsageMode.UseExplicitOrSharedPCHs;

		PublicDependencyModuleNames.AddRange(new[] { "Core", "CoreUObject", "Engine", "UMG", "MediaAssets" });
		PrivateDependencyModuleNames.AddRange(new[] { "Json", "Slate", "SlateCore" });
	}
}
