import QtQuick
import QtQuick.Shapes

// A drawn sign, on a grid of 24 by 24: filled shapes, and lines with round ends.
Item {
	id: icon

	property string name
	property color color: Theme.text
	property int size: Theme.icon

	readonly property var shapes: ({
		"play": ["M8 5.2 L19 12 L8 18.8 Z", "M8 5.2 L19 12 L8 18.8 Z"],
		"pause": ["M7 5 h3 v14 h-3 Z M14 5 h3 v14 h-3 Z", "M7 5 h3 v14 h-3 Z M14 5 h3 v14 h-3 Z"],
		"replay": ["", "M4.5 12 A7.5 7.5 0 1 0 7.2 6.2 M7.6 2.6 L7 6.4 L10.8 7"],
		"volume": ["M4 9.5 h3.2 L11.5 6 v12 L7.2 14.5 H4 Z",
			"M4 9.5 h3.2 L11.5 6 v12 L7.2 14.5 H4 Z M15 9 A4.2 4.2 0 0 1 15 15 M17.6 6.4 A8 8 0 0 1 17.6 17.6"],
		"volume-low": ["M4 9.5 h3.2 L11.5 6 v12 L7.2 14.5 H4 Z",
			"M4 9.5 h3.2 L11.5 6 v12 L7.2 14.5 H4 Z M15 9 A4.2 4.2 0 0 1 15 15"],
		"muted": ["M4 9.5 h3.2 L11.5 6 v12 L7.2 14.5 H4 Z",
			"M4 9.5 h3.2 L11.5 6 v12 L7.2 14.5 H4 Z M15.5 9.5 L20.5 14.5 M20.5 9.5 L15.5 14.5"],
		"keyboard": ["", "M4.5 6 h15 a2 2 0 0 1 2 2 v8 a2 2 0 0 1 -2 2 h-15 a2 2 0 0 1 -2 -2 v-8 a2 2 0 0 1 2 -2 Z"
			+ " M6.6 10 h0.01 M10.2 10 h0.01 M13.8 10 h0.01 M17.4 10 h0.01 M8 14 h8"],
		"settings": ["", "M12 9 A3 3 0 1 1 12 15 A3 3 0 1 1 12 9 Z"
			+ " M10.4 3 h3.2 l0.5 2.5 l1.9 1.1 l2.4 -0.9 l1.6 2.8 l-1.9 1.6 v2 l1.9 1.6 l-1.6 2.8 l-2.4 -0.9 l-1.9 1.1"
			+ " l-0.5 2.5 h-3.2 l-0.5 -2.5 l-1.9 -1.1 l-2.4 0.9 l-1.6 -2.8 l1.9 -1.6 v-2 l-1.9 -1.6 l1.6 -2.8 l2.4 0.9"
			+ " l1.9 -1.1 Z"],
		"style": ["", "M6 17 L11.3 4 h1.4 L18 17 M8 12.5 h8"],
		"open": ["", "M3 18 V6.5 a1.5 1.5 0 0 1 1.5 -1.5 H9 l2.2 2.5 h7.3 a1.5 1.5 0 0 1 1.5 1.5 V10 M3 18"
			+ " l2.6 -7 a1.5 1.5 0 0 1 1.4 -1 h13.2 a1 1 0 0 1 1 1.4 L18.8 18 a1.5 1.5 0 0 1 -1.4 1 H4 a1 1 0 0 1 -1 -1"],
		"fullscreen": ["", "M4 9 V5.5 A1.5 1.5 0 0 1 5.5 4 H9 M15 4 h3.5 A1.5 1.5 0 0 1 20 5.5 V9 M20 15 v3.5"
			+ " a1.5 1.5 0 0 1 -1.5 1.5 H15 M9 20 H5.5 A1.5 1.5 0 0 1 4 18.5 V15"],
		"windowed": ["", "M9 4 V7.5 A1.5 1.5 0 0 1 7.5 9 H4 M20 9 h-3.5 A1.5 1.5 0 0 1 15 7.5 V4 M15 20 v-3.5"
			+ " a1.5 1.5 0 0 1 1.5 -1.5 H20 M4 15 h3.5 a1.5 1.5 0 0 1 1.5 1.5 V20"],
		"comment": ["", "M5.5 4.5 h13 a2 2 0 0 1 2 2 v8 a2 2 0 0 1 -2 2 H12 l-4.5 4 v-4 h-2 a2 2 0 0 1 -2 -2 v-8"
			+ " a2 2 0 0 1 2 -2 Z M8 9 h8 M8 12.2 h5"],
		"comment-off": ["", "M9 4.5 h9.5 a2 2 0 0 1 2 2 v8 a2 2 0 0 1 -1.2 1.8 M15.5 16.5 H12 l-4.5 4 v-4 h-2"
			+ " a2 2 0 0 1 -2 -2 v-8 a2 2 0 0 1 1 -1.7 M3.5 3.5 L20.5 20.5"],
		"send": ["", "M4 4.5 L20.5 12 L4 19.5 L6.5 12 Z M6.5 12 H12"],
		"close": ["", "M6 6 L18 18 M18 6 L6 18"],
		"check": ["", "M5 12.5 L10 17.5 L19.5 7"],
		"warning": ["", "M12 4 L21 19.5 H3 Z M12 10 v4 M12 16.8 v0.01"],
		"info": ["", "M12 3.5 A8.5 8.5 0 1 1 12 20.5 A8.5 8.5 0 1 1 12 3.5 Z M12 11 v5 M12 7.8 v0.01"],
		"down": ["", "M6.5 9.5 L12 15 L17.5 9.5"],
		"up": ["", "M6.5 14.5 L12 9 L17.5 14.5"],
		"back": ["", "M14.5 6.5 L9 12 L14.5 17.5"],
		"more": ["", "M6 12 h0.01 M12 12 h0.01 M18 12 h0.01"],
		"film": ["", "M5 4.5 h14 a1.5 1.5 0 0 1 1.5 1.5 v12 a1.5 1.5 0 0 1 -1.5 1.5 H5 A1.5 1.5 0 0 1 3.5 18 V6"
			+ " A1.5 1.5 0 0 1 5 4.5 Z M8 4.5 v15 M16 4.5 v15 M3.5 12 h17 M3.5 8.2 H8 M3.5 15.8 H8 M16 8.2 h4.5 M16 15.8 h4.5"]
	})
	readonly property var shape: shapes[name] ?? ["", ""]

	implicitWidth: size
	implicitHeight: size

	Shape {
		anchors.fill: parent
		// The scene has no anti-aliasing of its own: drawn at twice the size and with samples, then scaled down.
		layer.enabled: true
		layer.smooth: true
		layer.samples: 4
		layer.textureSize: Qt.size(Math.ceil(width * Screen.devicePixelRatio) * 2,
			Math.ceil(height * Screen.devicePixelRatio) * 2)

		ShapePath {
			strokeColor: "transparent"
			fillColor: icon.color
			scale: Qt.size(icon.width / 24, icon.height / 24)

			PathSvg { path: icon.shape[0] }
		}

		ShapePath {
			strokeColor: icon.color
			strokeWidth: 1.7 * icon.width / 24
			fillColor: "transparent"
			capStyle: ShapePath.RoundCap
			joinStyle: ShapePath.RoundJoin
			scale: Qt.size(icon.width / 24, icon.height / 24)

			PathSvg { path: icon.shape[1] }
		}
	}
}
