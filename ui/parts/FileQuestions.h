// Asks for the names of files. Paths are whole, and UTF-8; nothing when the question is cancelled.
#pragma once
#include <QString>
#include <optional>
#include <string>

class QWidget;

// What files are listed, and what the name of a file to be saved ends in.
struct FileKind {
    QString filter;     // "Morvik Games (*.qdx)"
    QString extension;  // "qdx", added to a name typed without one
};

std::optional<std::string> AskFileToOpen(const FileKind& kind, const std::string& folder,
                                         QWidget* parent);

// Whether a file may be replaced is asked for the name with its extension. Both questions have the
// caption.
std::optional<std::string> AskFileToSave(const QString& caption, const FileKind& kind,
                                         const std::string& proposed, QWidget* parent);

// Asks for a place and writes the report there, its lines ended as files of this system have them.
// The name is proposed in the folder of the documents, with a '-' for each '/' in it. The player is
// told when the report could not be written.
void SaveReport(const std::string& report, QString name, QWidget* parent);
