#include "HeaderTool.h"

#include "Parser.h"
#include "Writer.h"

#include <filesystem>

namespace
{

/** The path from the innermost folder in which a module keeps headers: "Public/UI_DanmakuNode.h". */
void SetPaths(FHeader& Header, const std::string& Path)
{
	const std::filesystem::path Full(Path);
	std::filesystem::path Relative = Full.filename();
	Header.Path = Path;
	Header.Stem = Full.stem().string();
	Header.IncludePath = Header.ModuleRelativePath = Relative.string();
	for (std::filesystem::path Folder = Full.parent_path(); Folder.has_filename(); Folder = Folder.parent_path())
	{
		const bool bRoot = IsOneOf(Folder.filename().string(), {"Public", "Private", "Classes"});
		Header.ModuleRelativePath = bRoot ? (Folder.filename() / Relative).generic_string() : Header.ModuleRelativePath;
		Header.IncludePath = bRoot ? Relative.generic_string() : Header.IncludePath;
		if (bRoot)
		{
			break;
		}
		Relative = Folder.filename() / Relative;
	}
}

std::vector<FHeader> ReadHeaders(const std::vector<FTextFile>& Files, std::vector<std::string>& Errors)
{
	std::vector<FHeader> Headers(Files.size());
	for (std::size_t Index = 0; Index < Files.size(); ++Index)
	{
		SetPaths(Headers[Index], Files[Index].Path);
		try
		{
			ParseHeader(Files[Index].Text, Headers[Index]);
		}
		catch (const FHeaderError& Error)
		{
			Errors.push_back(Files[Index].Path + ":" + std::to_string(Error.Line) + ": " + Error.Message);
		}
	}
	return Headers;
}

} // namespace

FGenerated GenerateReflection(const FModuleInfo& Module, const std::vector<FTextFile>& Files,
							  const std::vector<FTextFile>& Used)
{
	FGenerated Generated;
	std::vector<FHeader> Headers = ReadHeaders(Files, Generated.Errors);
	std::vector<FHeader> UsedHeaders = ReadHeaders(Used, Generated.Errors);
	if (!Generated.Errors.empty())
	{
		return Generated;
	}
	const FSymbols Symbols = ResolveHeaders(Headers, UsedHeaders, Generated.Errors);
	for (std::size_t Index = 0; Generated.Errors.empty() && Index < Headers.size(); ++Index)
	{
		const FHeader& Header = Headers[Index];
		Generated.Files.push_back({Header.Stem + ".generated.h", WriteGeneratedHeader(Module, Header)});
		Generated.Files.push_back({Header.Stem + ".gen.cpp", WriteGeneratedSource(Module, Header, Symbols)});
	}
	return Generated;
}
