using UnrealBuildTool;

public class FlitmarkWidgets : ModuleRules
{
	public FlitmarkWidgets(ReadOnlyTargetRules Target) : base(Target)
	{
		PCHUsage = PCHUsageMode.UseExplicitOrSharedPCHs;

		PublicDependencyModuleNames.AddRange(new[] {
			"Core", "CoreUObject", "Engine", "Slate", "SlateCore", "UMG", "MediaAssets", "Flitmark" });
	}
}
