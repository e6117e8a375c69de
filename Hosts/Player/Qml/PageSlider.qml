import QtQuick
import QtQuick.Layouts
import Flitmark

// A slider with a label and its value.
ColumnLayout {
	id: root

	property alias label: name.text
	property alias valueText: reading.text
	property alias from: slider.from
	property alias to: slider.to
	property alias stepSize: slider.stepSize
	property alias snapMode: slider.snapMode
	property real value

	signal moved(real value)

	spacing: 2

	RowLayout {
		Layout.fillWidth: true

		Text {
			id: name

			Layout.fillWidth: true
			font.pixelSize: Theme.font
			color: Theme.text
		}

		Text {
			id: reading

			font.pixelSize: Theme.font
			color: Theme.textSoft
		}
	}

	StyledSlider {
		id: slider

		objectName: "Slider"
		Layout.fillWidth: true
		Accessible.name: name.text
		Accessible.description: reading.text
		onMoved: root.moved(value)

		// Dragging would break a plain binding.
		Binding on value { value: root.value }
	}
}
