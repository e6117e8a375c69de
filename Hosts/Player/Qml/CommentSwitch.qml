import QtQuick
import QtQuick.Controls.Basic
import Flitmark

// Switches the overlay on and off.
AbstractButton {
	id: root

	readonly property var mirror: Viewer.bar.open
	readonly property string purpose: mirror.checked ? qsTr("Hide comments") : qsTr("Show comments")

	implicitWidth: 46
	implicitHeight: Theme.control
	enabled: mirror.usable
	focusPolicy: Qt.TabFocus
	Accessible.role: Accessible.CheckBox
	Accessible.name: qsTr("Show comments")
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
			anchors.centerIn: parent
			width: 46
			height: 26
			radius: 13
			color: root.mirror.checked ? Theme.accent : Theme.field
			border.color: root.mirror.checked ? "transparent" : root.hovered ? Theme.textSoft : Theme.textOff

			Behavior on color { ColorAnimation { duration: Theme.quick } }

			FocusRing {
				visible: root.visualFocus
				radius: 16
			}

			Rectangle {
				x: root.mirror.checked ? parent.width - width - 3 : 3
				anchors.verticalCenter: parent.verticalCenter
				width: 20
				height: 20
				radius: 10
				color: root.mirror.checked ? "white" : Theme.textOff

				Behavior on x { NumberAnimation { duration: Theme.quick; easing.type: Easing.OutCubic } }

				Icon {
					anchors.centerIn: parent
					size: 14
					name: root.mirror.checked ? "comment" : "comment-off"
					color: root.mirror.checked ? "#1c6fb8" : Theme.field
				}
			}
		}
	}

	Tip {
		wanted: root.hovered && !root.pressed
		text: root.purpose
	}
}
