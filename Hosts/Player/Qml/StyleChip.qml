import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// One of the panel's boxes, with a small picture above its caption.
AbstractButton {
	id: root

	required property var mirror
	default property alias picture: pictureArea.data

	objectName: mirror.name
	implicitWidth: 76
	implicitHeight: 62
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

	background: Rectangle {
		radius: Theme.radius
		color: root.mirror.checked ? "#243ea6ff" : root.pressed ? Theme.pressed : root.hovered ? Theme.hover : "#0cffffff"
		border.width: root.mirror.checked ? 2 : 1
		border.color: root.mirror.checked ? Theme.accent : Theme.line

		Behavior on color { ColorAnimation { duration: Theme.quick } }

		FocusRing { visible: root.visualFocus }
	}

	contentItem: Item {
		Item {
			id: pictureArea

			anchors.horizontalCenter: parent.horizontalCenter
			y: 9
			width: 40
			height: 24
		}

		Text {
			anchors.horizontalCenter: parent.horizontalCenter
			y: 39
			width: Math.min(implicitWidth, parent.width - 6)
			elide: Text.ElideRight
			text: root.text
			font.pixelSize: Theme.fontSmall
			color: root.mirror.checked ? Theme.text : Theme.textSoft
		}
	}
}
