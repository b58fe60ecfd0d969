#include "ui/parts/FileQuestions.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "core/profile/AtomicFile.h"
#include "ui/parts/DialogParts.h"

namespace {

void MakeReady(QFileDialog& dialog, const FileKind& kind) {
    dialog.setNameFilter(kind.filter);
    dialog.setDefaultSuffix(kind.extension);
}

QString ChosenFile(QFileDialog& dialog) {
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

std::optional<std::string> Chosen(const QString& path) {
    if (path.isEmpty()) return std::nullopt;
    return path.toStdString();
}

}  // namespace

std::optional<std::string> AskFileToOpen(const FileKind& kind, const std::string& folder,
                                         QWidget* parent) {
    QFileDialog dialog(parent, QObject::tr("Open"), QString::fromStdString(folder));
    dialog.setObjectName("openFile");
    MakeReady(dialog, kind);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return Chosen(ChosenFile(dialog));
}

std::optional<std::string> AskFileToSave(const QString& caption, const FileKind& kind,
                                         const std::string& proposed, QWidget* parent) {
    const QFileInfo start(QString::fromStdString(proposed));
    QFileDialog dialog(parent, caption, start.absolutePath());
    dialog.setObjectName("saveFile");
    MakeReady(dialog, kind);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // Some platforms ask before the extension is added, for another file than the one replaced.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.selectFile(start.fileName());
    for (;;) {
        const QString path = ChosenFile(dialog);
        if (path.isEmpty() || !QFileInfo::exists(path)) return Chosen(path);
        const int answer = MayReplace(caption, path, parent);
        if (answer == QMessageBox::Yes) return Chosen(path);
        if (answer != QMessageBox::No) return std::nullopt;
    }
}

void SaveReport(const std::string& report, QString name, QWidget* parent) {
    const FileKind text{QObject::tr("Text files (*.txt)"), "txt"};
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    const QString proposed = folder.filePath(name.replace(u'/', u'-'));
    const auto path = AskFileToSave(QObject::tr("Save As"), text, proposed.toStdString(), parent);
    if (!path) return;
    QString lines = QString::fromStdString(report);
    lines.replace("\r\n", "\n");
    if (ReplaceFile(*path, lines.toStdString())) return;
    ShowMessage("saveFailed", QMessageBox::Critical, QObject::tr("Save As"),
                QObject::tr("%1 could not be written.").arg(QString::fromStdString(*path)), parent);
}
