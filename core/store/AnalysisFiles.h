// What a whole-game analysis leaves behind: the entries of the analysis cache (AnalysisCache.h),
// the Summary text with the same figures, and the Detail text with a line for every starting hand
// analysed. docs/analysis-files.md has the formats.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "core/analysis/GameAnalysis.h"
#include "core/profile/OutputFile.h"

// One line of the Summary: the label, and the value that the cache stores under the key. The row of
// column headings has neither key nor label; a label that ends in ';' leaves the payout column
// empty.
struct AnalysisEntry {
    std::string key;
    std::string label;
    std::string value;
};

// All entries in the order in which they are written.
std::vector<AnalysisEntry> AnalysisEntries(const GameTotals& totals, const PayTable& table,
                                           double coin);

// The Summary: "label;value" lines.
std::string SummaryText(const std::vector<AnalysisEntry>& entries);

// "%s(%i) Summary.txt" and "%s(%i) Detail.txt".
std::string SummaryFileName(const std::string& gameName, int tableIndex);
std::string DetailFileName(const std::string& gameName, int tableIndex);

// The name that marks such a file as that of a run that was cancelled: "... Summary partial.txt".
std::string PartialFileName(const std::string& name);

// Writes a Detail file while a game is analysed, through a buffer of its own. It takes an older
// one's place when it is closed. A file that cannot be created or written is told by Close; until
// then its lines are lost without a word.
class DetailFile {
  public:
    // Begins with the headings.
    DetailFile(const std::string& path, const PayTable& table);
    ~DetailFile();
    DetailFile(const DetailFile&) = delete;
    DetailFile& operator=(const DetailFile&) = delete;

    void Write(const PlayedHand& hand);

    // True when all has reached the file; again asked, the answer is the same.
    bool Close();
    // The same, into another file of the folder: the one named first stays as it was.
    bool CloseAs(const std::string& path);

    // The file that has the lines: of a pipe or device, and behind links, another than was asked
    // for.
    std::string Path() const { return file.Path(); }

    // Why not; empty when nothing failed.
    std::string Problem() const { return file.Problem(); }

  private:
    void Flush();

    std::size_t lineCount;
    OutputFile file;
    std::string buffer;
    std::size_t used = 0;  // characters of the buffer
};
