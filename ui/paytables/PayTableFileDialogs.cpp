#include "ui/paytables/PayTableFileDialogs.h"

#include <QFileInfo>
#include <QStandardPaths>

#include "core/profile/AtomicFile.h"
#include "ui/parts/FileQuestions.h"

namespace {

constexpr std::size_t kLongestFile = 4'000'000;  // bytes; 255 tables take a sixth of it

FileKind KindOf(TableFormat format) {
    if (format == TableFormat::kCsv) return {QObject::tr("Tables (*.csv)"), "csv"};
    return {QObject::tr("Text files (*.txt)"), "txt"};
}

// Writes the text to a file of the player's choice.
QString WriteText(const std::optional<std::string>& text, const QString& name, TableFormat format,
                  PayTableQuestions& questions, QWidget* parent) {
    if (!text) return {};
    const FileKind kind = KindOf(format);
    const QString caption = QObject::tr("Export");
    const auto path =
        AskFileToSave(caption, kind, ProposedFile(name + "." + kind.extension), parent);
    if (!path) return {};
    if (!ReplaceFile(*path, *text)) {
        questions.Tell(caption.toStdString(), *path + " could not be written.");
        return {};
    }
    return QObject::tr("%1 is written.").arg(QFileInfo(QString::fromStdString(*path)).fileName());
}

}  // namespace

QString ExportTable(const PayTableEditor& editor, PayTableQuestions& questions, TableFormat format,
                    QWidget* parent) {
    const std::string name = TableSection(editor.gameName, editor.TableIndex());
    return WriteText(editor.ExportTable(questions, format), QString::fromStdString(name), format,
                     questions, parent);
}

QString ExportGame(const PayTableEditor& editor, PayTableQuestions& questions, TableFormat format,
                   QWidget* parent) {
    return WriteText(editor.ExportGame(questions, format), QString::fromStdString(editor.gameName),
                     format, questions, parent);
}

QString ImportTables(PayTableEditor& editor, PayTableQuestions& questions, QWidget* parent) {
    const FileKind kind{QObject::tr("Pay tables (*.txt *.csv *.ini);;All files (*)"), ""};
    const auto folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const auto path = AskFileToOpen(kind, folder.toStdString(), parent);
    if (!path) return {};
    const auto text = ReadWholeFile(*path);
    if (!text || text->size() > kLongestFile) {
        questions.Tell("Import",
                       *path + (text ? " is too long for pay tables." : " could not be read."));
        return {};
    }
    return QString::fromStdString(editor.Import(questions, *text).value_or(""));
}
