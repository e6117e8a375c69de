import QtQuick
import QtQuick.Shapes
import Flitmark

// A spinner; does not show for short waits.
Item {
	id: root

	property bool wanted: false

	width: 48
	height: 48
	opacity: 0
	visible: opacity > 0

	states: State {
		when: root.wanted
		PropertyChanges { target: root; opacity: 1 }
	}
	transitions: Transition {
		to: "*"
		SequentialAnimation {
			PauseAnimation { duration: root.wanted ? 500 : 0 }
			NumberAnimation { property: "opacity"; duration: Theme.fade }
		}
	}

	// Visible on light pictures too.
	Rectangle {
		anchors.fill: parent
		anchors.margins: -12
		radius: width / 2
		color: "#80000000"
	}

	Shape {
		anchors.fill: parent
		layer.enabled: true
		layer.samples: 4

		ShapePath {
			strokeColor: "white"
			strokeWidth: 4
			fillColor: "transparent"
			capStyle: ShapePath.RoundCap

			PathAngleArc {
				centerX: 24
				centerY: 24
				radiusX: 20
				radiusY: 20
				startAngle: 0
				sweepAngle: 270
			}
		}

		RotationAnimator on rotation {
			running: root.visible
			from: 0
			to: 360
			duration: 1000
			loops: Animation.Infinite
		}
	}
}
