import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T
import Flitmark

// The keyboard shortcuts.
Popup {
	id: root

	required property var groups

	function caption(key) {
		const captions = {
			"Left": "←", "Right": "→", "Up": "↑", "Down": "↓", "Space": qsTr("Space"), "Enter": qsTr("Enter"),
			"Backspace": qsTr("Backspace"), "Home": qsTr("Home"), "End": qsTr("End"), "Esc": qsTr("Esc")
		}
		return key.split("+").map(part => captions[part] ?? part)
	}

	anchors.centerIn: T.Overlay.overlay
	width: Math.min(880, (T.Overlay.overlay?.width ?? 880) - 2 * Theme.margin)
	height: Math.min(implicitHeight, (T.Overlay.overlay?.height ?? 600) - 2 * Theme.margin)
	modal: true
	focus: true
	padding: 24

	T.Overlay.modal: Rectangle { color: Theme.scrim }
	background: Rectangle {
		radius: 14
		color: Theme.surface
		border.color: Theme.line
	}
	enter: Transition {
		NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.quick }
		NumberAnimation { property: "scale"; from: 0.97; to: 1; duration: Theme.quick; easing.type: Easing.OutCubic }
	}
	exit: Transition { NumberAnimation { property: "opacity"; to: 0; duration: Theme.quick } }

	component Cap: Rectangle {
		property alias text: capText.text

		implicitWidth: Math.max(26, capText.implicitWidth + 14)
		implicitHeight: 24
		radius: 5
		color: Theme.raised
		border.color: Theme.line

		Text {
			id: capText

			anchors.centerIn: parent
			color: Theme.text
			font.pixelSize: Theme.fontSmall
		}
	}

	component Line: RowLayout {
		id: line

		required property var modelData

		spacing: 6

		Text {
			Layout.fillWidth: true
			text: line.modelData.text
			elide: Text.ElideRight
			color: Theme.textSoft
			font.pixelSize: Theme.font
		}

		Repeater {
			model: line.modelData.keys

			Row {
				required property string modelData

				spacing: 3

				Repeater {
					model: root.caption(parent.modelData)

					Cap {
						required property string modelData

						text: modelData
					}
				}
			}
		}
	}

	component Group: ColumnLayout {
		id: group

		property var content

		Layout.fillWidth: true
		spacing: 7

		Text {
			text: group.content.title
			color: Theme.accent
			font.pixelSize: Theme.font
			font.weight: Font.DemiBold
		}

		Repeater {
			model: group.content.lines

			Line { Layout.fillWidth: true }
		}
	}

	contentItem: ColumnLayout {
		Accessible.role: Accessible.Dialog
		Accessible.name: title.text
		spacing: 18

		RowLayout {
			Text {
				id: title

				Layout.fillWidth: true
				text: qsTr("Keyboard shortcuts")
				color: Theme.text
				font.pixelSize: Theme.fontLarge
				font.weight: Font.DemiBold
			}

			PlayerButton {
				objectName: "CloseKeyboard"
				sign: "close"
				text: qsTr("Close")
				keys: qsTr("Esc")
				onClicked: root.close()
			}
		}

		Flickable {
			id: flick

			Layout.fillWidth: true
			Layout.fillHeight: true
			implicitHeight: columns.implicitHeight
			contentHeight: columns.implicitHeight
			clip: true
			boundsBehavior: Flickable.StopAtBounds
			ScrollBar.vertical: ScrollBar { policy: flick.contentHeight > flick.height ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff }

			GridLayout {
				id: columns

				width: flick.width - (flick.contentHeight > flick.height ? 16 : 0)
				columns: width > 600 ? 2 : 1
				columnSpacing: 40
				rowSpacing: 20

				ColumnLayout {
					Layout.alignment: Qt.AlignTop
					Layout.preferredWidth: 1
					Layout.fillWidth: true
					spacing: 20

					Group { content: root.groups[0] }
				}

				ColumnLayout {
					Layout.alignment: Qt.AlignTop
					Layout.preferredWidth: 1
					Layout.fillWidth: true
					spacing: 20

					Repeater {
						model: root.groups.slice(1)

						Group {
							required property var modelData

							content: modelData
						}
					}
				}
			}
		}
	}
}
