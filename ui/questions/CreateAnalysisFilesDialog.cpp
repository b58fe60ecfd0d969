#include "ui/questions/CreateAnalysisFilesDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "ui/parts/DialogParts.h"

namespace {

constexpr int kCharactersPerLine = 66;
constexpr int kLines = 7;

// A check box with the text that says what it makes.
QCheckBox* AddFile(QVBoxLayout& layout, QDialog& dialog, const QString& caption, const char* name,
                   const QString& explanation) {
    auto* box = new QCheckBox(caption, &dialog);
    box->setObjectName(name);
    auto* text = new QPlainTextEdit(explanation, &dialog);
    text->setObjectName(QString(name) + "Text");
    text->setAccessibleName(caption);
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    // Paths have few blanks.
    text->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    text->setMinimumSize(WidthOf(dialog, kCharactersPerLine),
                         dialog.fontMetrics().lineSpacing() * kLines);
    layout.addWidget(box);
    layout.addWidget(text);
    return box;
}

}  // namespace

CreateAnalysisFilesDialog::CreateAnalysisFilesDialog(const AnalysisFilePaths& files,
                                                     QWidget* parent)
    : QDialog(parent) {
    setObjectName("createAnalysisFiles");
    setWindowTitle(tr("Create Analysis Files"));
    auto* layout = new QVBoxLayout(this);
    summary = AddFile(*layout, *this, tr("Create &Summary file"), "summary",
                      tr("The summary file is a semicolon delimited text file that contains the "
                         "information in the game analysis dialog box. The file will be named %1.")
                          .arg(QString::fromStdString(files.summary)));
    detail = AddFile(*layout, *this, tr("Create &Detail file"), "detail",
                     tr("The detail file is a semicolon delimited text file that contains the "
                        "best plays for every hand. This file can be imported into a database or "
                        "spreadsheet and sorted by expected return to create a best play "
                        "strategy. The file will be named %1.")
                         .arg(QString::fromStdString(files.detail)));
    layout->addWidget(OkAndCancel(*this));
    MakeRoomForCaption(*this);
    resize(sizeHint().width(), minimumSizeHint().height());
    summary->setFocus();
}

AnalysisFilesChoice CreateAnalysisFilesDialog::Choice() const {
    return {summary->isChecked(), detail->isChecked()};
}
