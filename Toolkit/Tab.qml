import QtQuick

// One page of a TabView, as large as the view lets it be; what is in it says itself where it stands.
FocusScope {
    required property string title
    property string symbol: "" // a system symbol's name; empty: no symbol
}
