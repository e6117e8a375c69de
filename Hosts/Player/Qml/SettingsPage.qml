import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T
import Flitmark

// The viewer's preferences; changes apply at once.
Popup {
	id: root

	anchors.centerIn: T.Overlay.overlay
	width: Math.min(460, (T.Overlay.overlay?.width ?? 460) - 2 * Theme.margin)
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

	contentItem: ColumnLayout {
		spacing: 0
		Accessible.role: Accessible.Dialog
		Accessible.name: title.text

		Text {
			id: title

			text: qsTr("Settings")
			font.pixelSize: Theme.fontLarge
			font.weight: Font.DemiBold
			color: Theme.text
		}

		RowLayout {
			Layout.topMargin: 18
			Layout.fillWidth: true

			Text {
				Layout.fillWidth: true
				text: qsTr("Show comments")
				font.pixelSize: Theme.font
				color: Theme.text
			}

			CommentSwitch { objectName: "PageSwitch" }
		}

		PageSlider {
			objectName: "FontSize"
			Layout.topMargin: 14
			Layout.fillWidth: true
			label: qsTr("Size of your comments")
			valueText: qsTr("%1 pt").arg(Preferences.fontSize)
			from: Preferences.smallestFontSize
			to: Preferences.largestFontSize
			stepSize: 1
			value: Preferences.fontSize
			onMoved: value => Preferences.fontSize = Math.round(value)
		}

		PageSlider {
			objectName: "SpeedScale"
			Layout.topMargin: 14
			Layout.fillWidth: true
			label: qsTr("Speed of all comments")
			valueText: qsTr("%1×").arg(Number(Preferences.speedScale).toLocaleString(Qt.locale(), "f", 2))
			// Half and double are equally far from 1.
			from: Math.log2(Preferences.slowestSpeedScale)
			to: Math.log2(Preferences.fastestSpeedScale)
			stepSize: 0.1
			value: Math.log2(Preferences.speedScale)
			onMoved: value => Preferences.speedScale = Math.round(Math.pow(2, value) * 100) / 100
		}

		RowLayout {
			Layout.topMargin: 14
			Layout.fillWidth: true

			Text {
				Layout.fillWidth: true
				text: qsTr("Stay in the field after sending")
				wrapMode: Text.Wrap
				font.pixelSize: Theme.font
				color: Theme.text
			}

			PageSwitch {
				objectName: "StayInField"
				text: qsTr("Stay in the field after sending")
				checked: PlayerSettings.stayInField
				onToggled: PlayerSettings.stayInField = checked
			}
		}

		CommentPreview {
			Layout.topMargin: 16
			Layout.fillWidth: true
			Layout.preferredHeight: 96
			fontSize: Preferences.fontSize
			speedScale: Preferences.speedScale
		}

		RowLayout {
			Layout.topMargin: 22
			Layout.fillWidth: true
			spacing: Theme.gap

			PageButton {
				objectName: "Defaults"
				text: qsTr("Reset to defaults")
				onClicked: {
					Preferences.Restore()
					PlayerSettings.Restore()
				}
			}

			Item { Layout.fillWidth: true }

			PageButton {
				objectName: "Done"
				text: qsTr("Done")
				prominent: true
				onClicked: root.close()
			}
		}
	}
}
