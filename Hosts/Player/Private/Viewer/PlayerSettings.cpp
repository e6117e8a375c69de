#include "Viewer/PlayerSettings.h"

#include "Viewer/TakeNew.h"

namespace Flitmark
{

namespace
{

FPlayerSettings* Living = nullptr;

} // namespace

FPlayerSettings::FPlayerSettings(QSettings& InOutSettings)
	: Settings(InOutSettings)
	, bStayInField(Settings.value("stayInField", false).toBool())
{
	Living = this;
}

FPlayerSettings::~FPlayerSettings()
{
	Living = nullptr;
}

FPlayerSettings* FPlayerSettings::create(QQmlEngine*, QJSEngine*)
{
	QJSEngine::setObjectOwnership(Living, QJSEngine::CppOwnership);
	return Living;
}

void FPlayerSettings::SetStayInField(bool bInStay)
{
	if (TakeNew(bStayInField, bInStay))
	{
		Settings.setValue("stayInField", bStayInField);
		Q_EMIT Changed();
	}
}

void FPlayerSettings::Restore()
{
	SetStayInField(false);
}

} // namespace Flitmark
