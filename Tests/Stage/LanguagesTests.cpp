#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Stage/Languages.h"
#include "StageFixture.h"

#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

struct FLanguageCase
{
	const char16_t* Culture;
	bool bSpoken;
	const char* Closed;
};

class FLanguages : public FStageFixture, public ::testing::WithParamInterface<FLanguageCase>
{
protected:
	void TearDown() override { UseLanguage(TEXT("en-US")); }
};

} // namespace

/** The field of a closed bar says that it is closed, in the viewer's language. */
TEST_P(FLanguages, ClosedBarSpeaks)
{
	EXPECT_EQ(UseLanguage(GetParam().Culture), GetParam().bSpoken);
	FindInBar<UCheckBox>(TEXT("OpenDanmakuButton"))->Toggle(false);
	EXPECT_EQ(ToUtf8(FindInBar<UEditableText>(TEXT("InputDanmakuText"))->GetText().ToString()), GetParam().Closed);
}

INSTANTIATE_TEST_SUITE_P(Cultures, FLanguages,
						 ::testing::Values(FLanguageCase{u"en-US", true, "ClosedBullet"},
										   FLanguageCase{u"zh-Hant-TW", true, "弹幕已关闭"},
										   FLanguageCase{u"ja_JP.UTF-8", true, "コメントはオフです"},
										   FLanguageCase{u"fr_FR", false, "ClosedBullet"},
										   FLanguageCase{u"C.UTF-8", false, "ClosedBullet"}));

} // namespace Flitmark
