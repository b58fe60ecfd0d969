#include "ui/parts/FileQuestions.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <iterator>
#include <utility>

#include "core/profile/AtomicFile.h"
#include "ui/parts/DialogParts.h"

namespace {

// Only the window that asks is held up: beside a report that is saved the machine is played on.
QString ChosenFile(QFileDialog& dialog) {
    if (dialog.parentWidget()) dialog.setWindowModality(Qt::WindowModal);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return QFileInfo(dialog.selectedFiles().constFirst()).absoluteFilePath();
}

// Yes, No, or anything else when the question is put away.
int MayReplace(const QString& caption, const QString& path, QWidget* parent) {
    const QString question = QObject::tr("%1 already exists.\nDo you want to replace it?")
                                 .arg(QFileInfo(path).fileName());
    return ShowMessage("replaceFile", QMessageBox::Warning, caption, question, parent,
                       QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
}

std::size_t KindOf(const QString& path, std::span<const FileKind> kinds, std::size_t otherwise) {
    const QString extension = QFileInfo(path).suffix();
    const auto is = [&](const FileKind& kind) {
        return kind.extension.compare(extension, Qt::CaseInsensitive) == 0;
    };
    const auto found = std::ranges::find_if(kinds, is);
    return found == kinds.end() ? otherwise
                                : static_cast<std::size_t>(std::distance(kinds.begin(), found));
}

std::optional<std::string> Chosen(const QString& path) {
    if (path.isEmpty()) return std::nullopt;
    return path.toStdString();
}

}  // namespace

std::optional<std::string> AskFileToOpen(const FileKind& kind, const std::string& folder,
                                         QWidget* parent) {
    QFileDialog dialog(parent, QObject::tr("Open"), QString::fromStdString(folder));
    dialog.setObjectName("openFile");
    dialog.setNameFilter(kind.filter);
    dialog.setDefaultSuffix(kind.extension);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return Chosen(ChosenFile(dialog));
}

std::optional<std::string> AskFileToSave(const QString& caption, const FileKind& kind,
                                         const std::string& proposed, QWidget* parent) {
    const auto file = AskFileToSave(caption, std::span(&kind, 1), proposed, parent);
    if (!file) return std::nullopt;
    return file->path;
}

std::optional<FileOfKind> AskFileToSave(const QString& caption, std::span<const FileKind> kinds,
                                        const std::string& proposed, QWidget* parent) {
    const QFileInfo start(QString::fromStdString(proposed));
    QFileDialog dialog(parent, caption, start.absolutePath());
    dialog.setObjectName("saveFile");
    QStringList filters;
    for (const FileKind& kind : kinds) filters.append(kind.filter);
    const auto chosen = [&] {
        const auto at = filters.indexOf(dialog.selectedNameFilter());
        return static_cast<std::size_t>(std::max<qsizetype>(at, 0));
    };
    const auto takeKind = [&] { dialog.setDefaultSuffix(kinds[chosen()].extension); };
    dialog.setNameFilters(filters);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, takeKind);
    takeKind();
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // Some platforms ask before the extension is added, for another file than the one replaced.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.selectFile(start.fileName());
    for (;;) {
        const QString path = ChosenFile(dialog);
        if (path.isEmpty()) return std::nullopt;
        const int answer =
            QFileInfo::exists(path) ? MayReplace(caption, path, parent) : int(QMessageBox::Yes);
        if (answer == QMessageBox::Yes)
            return FileOfKind{path.toStdString(), KindOf(path, kinds, chosen())};
        if (answer != QMessageBox::No) return std::nullopt;
    }
}

std::string ProposedFile(QString name) {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return folder.filePath(name.replace(u'/', u'-')).toStdString();
}

bool WriteFileOrTell(const std::string& path, std::string_view contents, QWidget* parent) {
    if (ReplaceFile(path, contents)) return true;
    ShowMessage("saveFailed", QMessageBox::Critical, QObject::tr("Save As"),
                QObject::tr("%1 could not be written.").arg(QString::fromStdString(path)), parent);
    return false;
}

void SaveReport(const std::string& report, QString name, QWidget* parent) {
    const FileKind text{QObject::tr("Text files (*.txt)"), "txt"};
    const auto path =
        AskFileToSave(QObject::tr("Save As"), text, ProposedFile(std::move(name)), parent);
    if (!path) return;
    QString lines = QString::fromStdString(report);
    lines.replace("\r\n", "\n");
    WriteFileOrTell(*path, lines.toStdString(), parent);
}
