// MakeIcons FOLDER SIZE...: paints the program's icon as PNG files for the list of programs, such
// as FOLDER/48x48/apps/tolvane.png. FOLDER/48x48/apps has to be there. Exit code 1: not all were
// written.
#include <QDir>
#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <cstdio>

#include "ui/art/PictureStore.h"

namespace {

bool WriteIcon(const QIcon& icon, int side, const QDir& folder) {
    const QString file = folder.filePath(QStringLiteral("%1x%1/apps/tolvane.png").arg(side));
    return icon.pixmap(QSize(side, side), 1).save(file);
}

}  // namespace

int main(int argc, char** argv) {
    const QGuiApplication app(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const QIcon icon = ProgramIcon();
    for (const QString& size : arguments.mid(2)) {
        if (WriteIcon(icon, size.toInt(), arguments[1])) continue;
        std::fprintf(stderr, "MakeIcons: no icon of size %s\n", qPrintable(size));
        return 1;
    }
    return 0;
}
