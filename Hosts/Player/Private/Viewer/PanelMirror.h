#pragma once

#include "Viewer/CheckBoxMirror.h"
#include "Viewer/FieldMirror.h"

#include <QColor>
#include <QList>

#include <memory>
#include <vector>

class UImage;
class UUI_DanmakuNodeSetting;

namespace Flitmark
{

/** The module's style panel. */
class FPanelMirror final : public FWidgetMirror
{
	Q_OBJECT
	QML_ANONYMOUS
	Q_PROPERTY(QList<QObject*> modes READ GetModes CONSTANT)
	Q_PROPERTY(QList<QObject*> sizes READ GetSizes CONSTANT)
	Q_PROPERTY(QList<QObject*> presets READ GetPresets CONSTANT)
	Q_PROPERTY(Flitmark::FFieldMirror* colorField READ GetColorField CONSTANT)
	Q_PROPERTY(QColor swatch READ GetSwatch NOTIFY SwatchChanged)

public:
	explicit FPanelMirror(UUI_DanmakuNodeSetting& InPanel);

	void Read() override;

	/** Check boxes, in the panel's order; a preset's name ends in its six digits. */
	QList<QObject*> GetModes() const { return GetBoxes(0, 3); }
	QList<QObject*> GetSizes() const { return GetBoxes(3, 2); }
	QList<QObject*> GetPresets() const { return GetBoxes(5, 4); }
	FFieldMirror* GetColorField() { return &ColorField; }
	/** The color that comments are sent in. */
	QColor GetSwatch() const { return Swatch; }

	/** The pointer, or what stands in for it, entered or left the panel. */
	Q_INVOKABLE void Enter();
	Q_INVOKABLE void Leave();
	/** Closes the panel without its delay, when the viewer asks. */
	Q_INVOKABLE void Dismiss();

Q_SIGNALS:
	void SwatchChanged();

private:
	QList<QObject*> GetBoxes(std::size_t InFirst, std::size_t InCount) const;

	UUI_DanmakuNodeSetting& Panel;
	UImage& Image;
	std::vector<std::unique_ptr<FCheckBoxMirror>> Boxes;
	FFieldMirror ColorField;
	QColor Swatch;
};

} // namespace Flitmark
