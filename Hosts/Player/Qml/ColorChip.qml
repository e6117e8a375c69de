import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// One of the panel's preset colors; the box's name ends in its digits.
AbstractButton {
	id: root

	required property var mirror
	readonly property color preset: "#" + mirror.name.slice(-6)

	objectName: mirror.name
	implicitWidth: 32
	implicitHeight: 32
	enabled: mirror.usable
	focusPolicy: Qt.TabFocus
	Accessible.role: Accessible.RadioButton
	Accessible.name: text
	// The button's own state is what assistive technology hears of; it changes with a click, whatever comes of it.
	checkable: true
	checked: mirror.checked
	onClicked: {
		mirror.Toggle(!mirror.checked)
		checked = Qt.binding(() => mirror.checked)
	}
	Keys.onReturnPressed: click()
	Keys.onEnterPressed: click()

	contentItem: Item {
		Rectangle {
			anchors.fill: parent
			radius: width / 2
			color: "transparent"
			border.width: 2
			border.color: root.mirror.checked ? Theme.accent : root.hovered ? Theme.textOff : "transparent"

			Behavior on border.color { ColorAnimation { duration: Theme.quick } }

			FocusRing {
				visible: root.visualFocus
				radius: width / 2
			}
		}

		Rectangle {
			anchors.centerIn: parent
			width: 22
			height: 22
			radius: 11
			color: root.preset
			border.color: "#40ffffff"

			Icon {
				anchors.centerIn: parent
				visible: root.mirror.checked
				size: 14
				name: "check"
				// Light on dark colors, dark on light ones.
				color: root.preset.hslLightness > 0.6 ? "#16181d" : "white"
			}
		}
	}

	Tip {
		wanted: root.hovered
		text: root.text
	}
}
