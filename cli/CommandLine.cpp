#include "cli/Commands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <vector>

#include "cli/Texts.h"

namespace cli {
namespace {

constexpr const char* kDescription =
    "The exact worth of video poker hands: every number is counted, none is dealt.";
constexpr const char* kFooter =
    "GAME is a name (any letter case) or an id (300..356, 9001..9010).\n"
    "CARDS is one argument: cards separated by blanks, each a rank A 2..9 T J Q K and a\n"
    "suit S H C D ($ for the fifth ace), or W for a joker.\n"
    "\"tolvane-cli help COMMAND\" lists the options of a command.\n\n"
    "Exit status: 0 done; 2 the command line or the cards are wrong; 1 anything else.";

// The parser of the whole command line, with the options of the command that it found.
class CommandParser {
  public:
    explicit CommandParser(std::span<const Command> commands);

    Answer Run(int argc, const char* const* argv);

  private:
    struct Entry {
        const Command* command = nullptr;
        CLI::App* parser = nullptr;
    };

    void AddCommand(const Command& command);
    Answer RunParsed();
    Answer Help(const std::string& topic);
    Answer UnknownCommand(const std::string& name) const;
    Answer WrongUse(const std::string& problem) const;
    std::optional<Failure> CheckTexts(std::string_view commandName,
                                      const std::vector<std::string>& texts) const;
    std::optional<Failure> CheckLeftOver() const;
    const Entry* FindEntry(std::string_view name) const;
    // The name of the command that was read; empty for none.
    std::string CommandName() const;

    CLI::App app;
    CLI::App* help = nullptr;
    std::string helpTopic;
    Options options;
    std::vector<Entry> entries;
};

Answer AnswerOf(const Failure& failure) { return {failure.status, "", failure.message}; }

CommandParser::CommandParser(std::span<const Command> commands)
    : app(kDescription, std::string(kProgramName)) {
    app.set_version_flag("--version", std::string(kProgramName) + " " + TOLVANE_VERSION);
    app.footer(kFooter);
    const auto formatter = app.get_formatter();
    formatter->column_width(16);
    formatter->label("Positionals", "Arguments");
    formatter->label("REQUIRED", "");
    formatter->label("SUBCOMMAND", "COMMAND");
    // What the parser does not know it leaves over, and it is named here with its mend.
    app.allow_extras();
    // With two allowed, "help hand" would be the two commands help and hand.
    app.require_subcommand(0, 1);
    for (const Command& command : commands) AddCommand(command);
    help = app.add_subcommand("help", "This help, or that of a command");
    help->add_option("COMMAND", helpTopic, "The command to explain")->type_name("");
    help->allow_extras();
    help->group("Commands");
}

void CommandParser::AddCommand(const Command& command) {
    CLI::App* parser = app.add_subcommand(command.name, command.summary);
    parser->allow_extras();
    parser->group("Commands");
    command.addArguments(*parser, options);
    AddCommonOptions(*parser, options);
    entries.push_back({&command, parser});
}

const CommandParser::Entry* CommandParser::FindEntry(std::string_view name) const {
    const auto found =
        std::ranges::find_if(entries, [name](const auto& e) { return e.command->name == name; });
    return found == entries.end() ? nullptr : &*found;
}

std::string CommandParser::CommandName() const {
    const auto parsed = app.get_subcommands();
    return parsed.empty() ? "" : parsed.front()->get_name();
}

Answer CommandParser::Help(const std::string& topic) {
    const auto formatter = app.get_formatter();
    const std::string name(kProgramName);
    if (topic.empty() || topic == "help") {
        return {0, formatter->make_help(&app, name, CLI::AppFormatMode::Normal), ""};
    }
    const Entry* entry = FindEntry(topic);
    if (entry == nullptr) return UnknownCommand(topic);
    return {0, entry->parser->help(name), ""};
}

Answer CommandParser::UnknownCommand(const std::string& name) const {
    std::vector<std::string> names = {"help"};
    for (const Entry& entry : entries) names.push_back(entry.command->name);
    return {kWrongUse, "", "unknown command " + Quoted(name) + DidYouMean(name, names)};
}

std::optional<Failure> CommandParser::CheckTexts(std::string_view commandName,
                                                 const std::vector<std::string>& texts) const {
    const auto isOption = [](const std::string& text) {
        return text.size() > 1 && text.front() == '-';
    };
    const auto option = std::ranges::find_if(texts, isOption);
    if (option != texts.end()) {
        const std::string mend =
            commandName.empty()
                ? "options follow the command"
                : "\"tolvane-cli help " + std::string(commandName) + "\" lists those there are";
        return Failure{kWrongUse, "unknown option " + Quoted(*option) + ": " + mend};
    }
    if (texts.empty()) return std::nullopt;
    return Failure{kWrongUse, Quoted(texts.front()) +
                                  " is one argument too many: put a game's name, and all the "
                                  "cards, between quotes"};
}

std::optional<Failure> CommandParser::CheckLeftOver() const {
    const auto parsed = app.get_subcommands();
    if (!parsed.empty()) {
        if (auto failure = CheckTexts(CommandName(), parsed.front()->remaining())) {
            return failure;
        }
    }
    const auto before = app.remaining();
    if (parsed.empty() && !before.empty() && !before.front().starts_with('-')) {
        const Answer unknown = UnknownCommand(before.front());
        return Failure{unknown.status, unknown.problem};
    }
    return CheckTexts("", before);
}

Answer CommandParser::RunParsed() {
    if (const auto failure = CheckLeftOver()) return AnswerOf(*failure);
    const std::string name = CommandName();
    if (name.empty()) {
        Answer answer = Help("");
        answer.status = kWrongUse;
        answer.problem = "no command given: choose one of those in the help";
        return answer;
    }
    if (help->parsed()) return Help(helpTopic);
    Answer answer;
    if (const auto failure = FindEntry(name)->command->run(options, answer.output)) {
        answer.status = failure->status;
        answer.problem = failure->message;
    }
    return answer;
}

Answer CommandParser::WrongUse(const std::string& problem) const {
    const std::string name = CommandName();
    return {kWrongUse, "",
            problem + "; see \"tolvane-cli help" + (name.empty() ? "" : " " + name) + "\""};
}

Answer CommandParser::Run(int argc, const char* const* argv) {
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return Help(CommandName());
    } catch (const CLI::CallForVersion& version) {
        return {0, std::string(version.what()) + "\n", ""};
    } catch (const CLI::RequiredError& error) {
        // An unknown option may well be why something else is missing.
        if (const auto failure = CheckLeftOver()) return AnswerOf(*failure);
        return WrongUse(error.what());
    } catch (const CLI::ArgumentMismatch& error) {
        const std::string problem = error.what();  // begins with the option and a colon
        return WrongUse(problem.substr(0, problem.find(':')) + " takes one value, once");
    } catch (const CLI::ParseError& error) {
        return WrongUse(error.what());
    }
    return RunParsed();
}

}  // namespace

Answer AnswerCommandLine(std::span<const Command> commands, int argc, const char* const* argv) {
    return CommandParser(commands).Run(argc, argv);
}

}  // namespace cli
