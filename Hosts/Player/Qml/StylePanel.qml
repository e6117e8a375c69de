import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Flitmark

// The module's style panel, for the comments that the viewer sends. Its parent places it; the module shows and hides
// it.
FocusScope {
	id: root

	readonly property var mirror: Viewer.panel
	// Opened and used without a pointer, so a leaving pointer doesn't hide it.
	property bool held: false
	readonly property bool underPointer: pointer.hovered
	readonly property var captions: ({
		"Scroll": qsTr("Scrolling"),
		"Top": qsTr("Top"),
		"Bottom": qsTr("Bottom"),
		"Small": qsTr("Small"),
		"Normal": qsTr("Normal"),
		"C_FE0302": qsTr("Red"),
		"C_00CD00": qsTr("Green"),
		"C_4266BE": qsTr("Blue"),
		"C_FFFFFF": qsTr("White")
	})

	// The viewer wants it gone at once.
	signal dismissed
	// The pointer left it.
	signal pointerLeft

	function focusFirst() {
		modes.itemAt(0).forceActiveFocus(Qt.TabFocusReason)
	}

	implicitWidth: 250 + 2 * Theme.margin
	implicitHeight: column.implicitHeight + 2 * Theme.margin
	enabled: mirror.displayed
	visible: mirror.displayed || opacity > 0
	opacity: mirror.displayed ? 1 : 0
	Accessible.role: Accessible.Grouping
	Accessible.name: qsTr("Comment style")
	Keys.onEscapePressed: dismissed()

	Behavior on opacity { NumberAnimation { duration: Theme.quick } }

	transform: Translate {
		y: root.mirror.displayed ? 0 : 6

		Behavior on y { NumberAnimation { duration: Theme.quick; easing.type: Easing.OutCubic } }
	}

	HoverHandler {
		id: pointer

		acceptedDevices: PointerDevice.AllDevices & ~PointerDevice.TouchScreen
		onHoveredChanged: {
			if (hovered) {
				root.mirror.Enter()
			} else if (!root.held) {
				root.mirror.Leave()
				root.pointerLeft()
			}
		}
	}

	// A soft shadow.
	Repeater {
		model: 5

		Rectangle {
			required property int index

			anchors.fill: parent
			anchors.margins: -2 * index - 1
			radius: background.radius - anchors.margins
			color: "#12000000"
		}
	}

	Rectangle {
		id: background

		anchors.fill: parent
		radius: 12
		color: Theme.raised
		border.color: Theme.line

		// Keeps clicks between the controls from the picture behind.
		MouseArea {
			anchors.fill: parent
			acceptedButtons: Qt.AllButtons
			onWheel: wheel => wheel.accepted = true
		}
	}

	ColumnLayout {
		id: column

		anchors.fill: parent
		anchors.margins: Theme.margin
		spacing: 6

		SectionTitle { text: qsTr("Position") }

		Row {
			spacing: Theme.gap

			Repeater {
				id: modes

				model: root.mirror.modes

				StyleChip {
					id: modeChip

					required property var modelData

					width: (column.width - 2 * Theme.gap) / 3
					mirror: modelData
					text: root.captions[mirror.name]

					ModePicture {
						place: modeChip.mirror.name
						marked: modeChip.mirror.checked
					}
				}
			}
		}

		SectionTitle {
			Layout.topMargin: 6
			text: qsTr("Size")
		}

		Row {
			spacing: Theme.gap

			Repeater {
				model: root.mirror.sizes

				StyleChip {
					id: sizeChip

					required property var modelData

					width: (column.width - Theme.gap) / 2
					mirror: modelData
					text: root.captions[mirror.name]

					Text {
						anchors.centerIn: parent
						text: qsTr("A", "a letter in the size of the comment")
						font.pixelSize: sizeChip.mirror.name === "Small" ? 15 : 22
						font.weight: Font.DemiBold
						color: sizeChip.mirror.checked ? Theme.accent : Theme.textSoft
					}
				}
			}
		}

		SectionTitle {
			Layout.topMargin: 6
			text: qsTr("Color")
		}

		RowLayout {
			spacing: 6

			Repeater {
				model: root.mirror.presets

				ColorChip {
					required property var modelData

					mirror: modelData
					text: root.captions[mirror.name]
				}
			}

			ViewerField {
				objectName: "ColorField"
				Layout.fillWidth: true
				Layout.leftMargin: 4
				Layout.preferredWidth: 96
				mirror: root.mirror.colorField
				leftPadding: 32
				rightPadding: 4
				implicitHeight: 32
				font.family: "monospace"
				font.pixelSize: 13
				inputMethodHints: Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase | Qt.ImhLatinOnly
				Accessible.name: qsTr("Color, as six hex digits")

				Rectangle {
					objectName: "Swatch"
					x: 8
					anchors.verticalCenter: parent.verticalCenter
					width: 18
					height: 18
					radius: 5
					color: root.mirror.swatch
					border.color: "#40ffffff"
				}
			}
		}
	}
}
