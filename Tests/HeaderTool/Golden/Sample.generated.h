// Written by flitmark-header-tool out of Public/Sample.h. Edits are lost.
#ifdef FID_Sample_Public_Sample_h_generated
#error "Sample.generated.h is included twice: Sample.h lacks #pragma once"
#endif
#define FID_Sample_Public_Sample_h_generated

#include "UObject/Class.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Script.h"

#define FID_Sample_Public_Sample_h_28_GENERATED_BODY \
private: \
	static void execOnMoved(UObject* Context, FFrame& Stack, void* const Z_Param__Result); \
	static UClass* GetPrivateStaticClass(); \
	friend struct Z_Construct_UClass_USample_Statics; \
public: \
	typedef UUserWidget Super; \
	typedef USample ThisClass; \
	USample(USample&&) = delete; \
	USample(const USample&) = delete; \
	USample& operator=(USample&&) = delete; \
	USample& operator=(const USample&) = delete; \
	static UClass* StaticClass() { return GetPrivateStaticClass(); } \
	USample(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get()) : Super(ObjectInitializer) {} \
	static void __DefaultConstructor(const FObjectInitializer& X) { ::new (X.GetObj()) USample(X); } \
private:

#undef CURRENT_FILE_ID
#define CURRENT_FILE_ID FID_Sample_Public_Sample_h

enum class ESampleMode : int32;
template <>
SAMPLE_API UEnum* StaticEnum<ESampleMode>();
