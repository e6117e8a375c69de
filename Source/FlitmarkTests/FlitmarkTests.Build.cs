using UnrealBuildTool;

public class FlitmarkTests : ModuleRules
{
	public FlitmarkTests(ReadOnlyTargetRules Target) : base(Target)
	{
		PCHUsage = PCHUsageMode.UseExplicitOrSharedPCHs;

		PrivateDependencyModuleNames.AddRange(new[] {
			"Core", "CoreUObject", "Engine", "InputCore", "Slate", "SlateCore", "UMG", "MediaAssets", "Flitmark",
			"FlitmarkWidgets" });
	}
}
