#include "ui/machine/MachineKeys.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <string_view>

namespace {

struct KeyRow {
    quint32 first;
    std::string_view keys;
};
constexpr KeyRow kDigits{10, "1234567890"};
constexpr KeyRow kLetters[] = {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};

constexpr int kFirstOtherScript = 0x250;  // behind the Latin letters with marks
constexpr int kFirstWithoutCharacter = Qt::Key_Escape;

// 0 when the place is not one in the row.
int KeyIn(const KeyRow& row, quint32 place) {
    const bool inside = place >= row.first && place - row.first < row.keys.size();
    return inside ? row.keys[place - row.first] : 0;
}

}  // namespace

quint32 PlaceOf(const QKeyEvent& event) {
    const QString platform = QGuiApplication::platformName();
    const bool known = platform == "xcb" || platform.startsWith("wayland");
    return known ? event.nativeScanCode() : 0;
}

int TableKeyOf(int key, quint32 place) {
    if (const int digit = KeyIn(kDigits, place)) return digit;
    if (key < kFirstOtherScript || key >= kFirstWithoutCharacter) return key;
    for (const KeyRow& row : kLetters) {
        if (const int letter = KeyIn(row, place)) return letter;
    }
    return key;
}
