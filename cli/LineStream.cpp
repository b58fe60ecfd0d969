#include "cli/LineStream.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "cli/Texts.h"

namespace cli {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;  // bytes read and written at once
constexpr std::size_t kLongestLine = 4096;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

class LineReader {
  public:
    // False at the end. Of a line that is too long, what fits.
    bool Next(std::string& line, bool& tooLong) {
        line.clear();
        tooLong = false;
        for (bool any = false;; any = true) {
            if (at == size && !Fill()) return any;
            const std::string_view rest(block.data() + at, size - at);
            const auto end = rest.find('\n');
            const auto part = rest.substr(0, end);
            const std::size_t room = kLongestLine - line.size();
            line += part.substr(0, room);
            tooLong = tooLong || part.size() > room;
            at += part.size() + (end == std::string_view::npos ? 0 : 1);
            if (end != std::string_view::npos) return true;
        }
    }

    bool Failed() const { return failed; }

  private:
    bool Fill() {
        ssize_t count = 0;
        do {
            count = read(STDIN_FILENO, block.data(), block.size());
        } while (count < 0 && errno == EINTR);
        failed = count < 0;
        at = 0;
        size = failed ? 0 : static_cast<std::size_t>(count);
        return size > 0;
    }

    std::array<char, kBlock> block{};
    std::size_t at = 0;
    std::size_t size = 0;
    bool failed = false;
};

// False when not all could be written; errno says why.
bool WriteAnswers(std::string& answers) {
    std::string_view rest = answers;
    while (!rest.empty()) {
        const ssize_t count = write(STDOUT_FILENO, rest.data(), rest.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) rest.remove_prefix(static_cast<std::size_t>(count));
    }
    answers.clear();
    return true;
}

// A file is there as a whole, and nobody waits for the answer to its first line.
bool InputIsFile() {
    struct stat info {};
    return fstat(STDIN_FILENO, &info) == 0 && S_ISREG(info.st_mode);
}

// What is to be answered of a line.
std::string Content(const std::string& line, bool first) {
    std::string_view text = line;
    if (first && text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    text = text.substr(0, text.find('#'));
    const auto start = text.find_first_not_of(" \t\v\f\r");
    if (start == std::string_view::npos) return "";
    return std::string(text.substr(start));
}

std::string ErrorText(std::int64_t line, const std::string& problem) {
    return JsonText({{"line", line}, {"error", problem}});
}

}  // namespace

std::optional<Failure> AnswerLines(const LineAnswer& answer) {
    // A reader who has gone is met by what write gives.
    std::signal(SIGPIPE, SIG_IGN);
    const std::size_t enough = InputIsFile() ? kBlock : 1;
    LineReader reader;
    std::string line;
    std::string answers;
    bool tooLong = false;
    std::int64_t wrong = 0;
    bool written = true;
    for (std::int64_t number = 1; written && reader.Next(line, tooLong); ++number) {
        const std::string content = Content(line, number == 1);
        if (line.find('#') != std::string::npos) tooLong = false;  // what follows is passed over
        if (content.empty() && !tooLong) continue;
        const std::string problem =
            tooLong ? "the line is too long: write one hand in each" : answer(content, answers);
        if (!problem.empty()) {
            answers += ErrorText(number, problem);
            ++wrong;
        }
        if (answers.size() >= enough) written = WriteAnswers(answers);
    }
    if (written) written = WriteAnswers(answers);
    if (!written && errno == EPIPE) return std::nullopt;
    if (!written) return Failure{kFailed, "the answer could not be written: is the disk full?"};
    if (reader.Failed()) return Failure{kFailed, "standard input cannot be read"};
    if (wrong == 0) return std::nullopt;
    return Failure{kWrongUse, std::to_string(wrong) + (wrong == 1 ? " line is" : " lines are") +
                                  " wrong: see the errors among the answers"};
}

}  // namespace cli
