import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T
import Flitmark

// The viewer's preferences; changes apply at once.
Popup {
	id: root

	readonly property bool roomy: (T.Overlay.overlay?.height ?? 600) > 480

	anchors.centerIn: T.Overlay.overlay
	width: Math.min(460, (T.Overlay.overlay?.width ?? 460) - 2 * Theme.margin)
	height: Math.min(implicitHeight, (T.Overlay.overlay?.height ?? 600) - 2 * Theme.margin)
	modal: true
	focus: true
	padding: roomy ? 24 : 16

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

	// A line with a switch.
	component SwitchLine: RowLayout {
		id: line

		property alias name: toggle.objectName
		property alias text: toggle.text
		property alias checked: toggle.checked

		signal toggled(bool checked)

		Layout.fillWidth: true

		Text {
			Layout.fillWidth: true
			text: line.text
			wrapMode: Text.Wrap
			font.pixelSize: Theme.font
			color: Theme.text
		}

		PageSwitch {
			id: toggle

			onToggled: line.toggled(checked)
		}
	}

	contentItem: ColumnLayout {
		spacing: 0
		Accessible.role: Accessible.Dialog
		Accessible.name: title.text
		Keys.onPressed: event => {
			if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown) {
				flick.scroll(event.key === Qt.Key_PageUp ? -flick.height : flick.height)
				event.accepted = true
			}
		}

		Text {
			id: title

			text: qsTr("Settings")
			font.pixelSize: Theme.fontLarge
			font.weight: Font.DemiBold
			color: Theme.text
		}

		Flickable {
			id: flick

			// A focus ring is a little wider than what it is around.
			readonly property int ring: 6
			readonly property bool scrolls: contentHeight > height
			readonly property Item focused: Window.activeFocusItem

			function scroll(distance) {
				contentY = Math.max(0, Math.min(contentHeight - height, contentY + distance))
			}

			objectName: "SettingsScroll"
			Layout.topMargin: root.roomy ? 18 - ring : 6
			Layout.leftMargin: -ring
			Layout.rightMargin: -ring
			Layout.fillWidth: true
			Layout.fillHeight: true
			implicitHeight: contentHeight
			contentHeight: content.implicitHeight + 2 * ring
			clip: true
			boundsBehavior: Flickable.StopAtBounds
			ScrollBar.vertical: ScrollBar { policy: flick.scrolls ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff }

			// What gets the keyboard comes into view.
			onFocusedChanged: {
				let ancestor = focused
				while (ancestor && ancestor !== content)
					ancestor = ancestor.parent
				if (!ancestor)
					return
				const top = focused.mapToItem(flick, 0, 0).y
				const above = top - 40
				const below = top + focused.height + 2 * ring - height
				if (above < 0)
					scroll(above)
				else if (below > 0)
					scroll(below)
			}

			ColumnLayout {
				id: content

				x: flick.ring
				y: flick.ring
				width: flick.width - 2 * flick.ring - (flick.scrolls ? 12 : 0)
				spacing: 14

				RowLayout {
					Layout.fillWidth: true

					Text {
						Layout.fillWidth: true
						text: qsTr("Show comments")
						font.pixelSize: Theme.font
						color: Theme.text
					}

					CommentSwitch { objectName: "PageSwitch" }
				}

				SwitchLine {
					name: "ShowsScrolling"
					text: qsTr("Scrolling comments")
					checked: ViewSettings.showsScrolling
					onToggled: checked => ViewSettings.showsScrolling = checked
				}

				SwitchLine {
					name: "ShowsTop"
					text: qsTr("Comments at the top")
					checked: ViewSettings.showsTop
					onToggled: checked => ViewSettings.showsTop = checked
				}

				SwitchLine {
					name: "ShowsBottom"
					text: qsTr("Comments at the bottom")
					checked: ViewSettings.showsBottom
					onToggled: checked => ViewSettings.showsBottom = checked
				}

				PageSlider {
					objectName: "Area"
					Layout.fillWidth: true
					label: qsTr("Part of the picture")
					valueText: [qsTr("a quarter"), qsTr("half"), qsTr("three quarters"),
						qsTr("all of it")][Math.round(ViewSettings.area / ViewSettings.areaStep) - 1]
					from: ViewSettings.areaStep
					to: 1
					stepSize: ViewSettings.areaStep
					snapMode: Slider.SnapAlways
					value: ViewSettings.area
					onMoved: value => ViewSettings.area = value
				}

				PageSlider {
					objectName: "Opacity"
					Layout.fillWidth: true
					label: qsTr("Opacity of all comments")
					valueText: qsTr("%1%").arg(Math.round(ViewSettings.opacity * 100))
					from: ViewSettings.lowestOpacity
					to: 1
					stepSize: 0.05
					value: ViewSettings.opacity
					onMoved: value => ViewSettings.opacity = Math.round(value * 100) / 100
				}

				PageSlider {
					objectName: "FontScale"
					Layout.fillWidth: true
					label: qsTr("Size of all comments")
					valueText: qsTr("%1%").arg(Math.round(ViewSettings.fontScale * 100))
					// Half and double are equally far from 1.
					from: Math.log2(ViewSettings.smallestFontScale)
					to: Math.log2(ViewSettings.largestFontScale)
					stepSize: 0.1
					value: Math.log2(ViewSettings.fontScale)
					onMoved: value => ViewSettings.fontScale = Math.round(Math.pow(2, value) * 100) / 100
				}

				PageSlider {
					objectName: "SpeedScale"
					Layout.fillWidth: true
					label: qsTr("Speed of all comments")
					valueText: qsTr("%1×").arg(Number(Preferences.speedScale).toLocaleString(Qt.locale(), "f", 2))
					from: Math.log2(Preferences.slowestSpeedScale)
					to: Math.log2(Preferences.fastestSpeedScale)
					stepSize: 0.1
					value: Math.log2(Preferences.speedScale)
					onMoved: value => Preferences.speedScale = Math.round(Math.pow(2, value) * 100) / 100
				}

				PageSlider {
					objectName: "Offset"
					Layout.fillWidth: true
					label: qsTr("Comments come later by")
					valueText: qsTr("%1 s").arg(Number(ViewSettings.offset).toLocaleString(Qt.locale(), "f", 1))
					from: -ViewSettings.longestOffset
					to: ViewSettings.longestOffset
					stepSize: 0.5
					value: ViewSettings.offset
					onMoved: value => ViewSettings.offset = Math.round(value * 2) / 2
				}

				PageSlider {
					objectName: "FontSize"
					Layout.fillWidth: true
					label: qsTr("Size of your comments")
					valueText: qsTr("%1 pt").arg(Preferences.fontSize)
					from: Preferences.smallestFontSize
					to: Preferences.largestFontSize
					stepSize: 1
					value: Preferences.fontSize
					onMoved: value => Preferences.fontSize = Math.round(value)
				}

				CommentPreview {
					Layout.fillWidth: true
					Layout.preferredHeight: 96
					fontSize: Preferences.fontSize * ViewSettings.fontScale
					speedScale: Preferences.speedScale
				}

				SwitchLine {
					name: "StayInField"
					text: qsTr("Stay in the field after sending")
					checked: PlayerSettings.stayInField
					onToggled: checked => PlayerSettings.stayInField = checked
				}
			}
		}

		RowLayout {
			Layout.topMargin: root.roomy ? 18 : 8
			Layout.fillWidth: true
			spacing: Theme.gap

			PageButton {
				objectName: "Defaults"
				text: qsTr("Reset to defaults")
				onClicked: {
					Preferences.Restore()
					ViewSettings.Restore()
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
