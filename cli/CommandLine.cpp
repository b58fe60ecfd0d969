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

Answer AnswerOf(const Failure& failure, const std::string& output = "") {
    return {failure.status, output, failure.message};
}

std::optional<Failure> CheckTexts(const std::string& commandName,
                                  const std::vector<std::string>& texts) {
    const auto isOption = [](const std::string& text) {
        return text.size() > 1 && text.front() == '-';
    };
    const auto option = std::ranges::find_if(texts, isOption);
    if (option != texts.end()) {
        const std::string mend =
            commandName.empty() ? "options follow the command"
                                : "\"tolvane-cli help " + commandName + "\" lists those there are";
        return Failure{kWrongUse, "unknown option " + Quoted(*option) + ": " + mend};
    }
    if (texts.empty()) return std::nullopt;
    return Failure{kWrongUse, Quoted(texts.front()) +
                                  " is one argument too many: put a game's name, and all the "
                                  "cards, between quotes"};
}

// The parser of the whole command line, with the options of the command that it found.
class CommandParser {
  public:
    explicit CommandParser(std::span<const Command> commands)
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
        for (const Command& command : commands) {
            CLI::App* parser = AddSubcommand(command.name, command.summary);
            command.addArguments(*parser, options);
            AddCommonOptions(*parser, options);
            entries.push_back({&command, parser});
        }
        help = AddSubcommand("help", "This help, or that of a command");
        help->add_option("COMMAND", helpTopic, "The command to explain")->type_name("");
    }

    Answer Run(int argc, const char* const* argv) {
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
            const std::string option = problem.substr(0, problem.find(':'));
            const bool repeatable =
                option.starts_with("--pay") || option == "--line" || option == "--at";
            return WrongUse(option + (repeatable ? " takes one value" : " takes one value, once"));
        } catch (const CLI::ParseError& error) {
            return WrongUse(error.what());
        }
        return RunParsed();
    }

  private:
    struct Entry {
        const Command* command = nullptr;
        CLI::App* parser = nullptr;
    };

    CLI::App* AddSubcommand(const std::string& name, const std::string& summary) {
        CLI::App* parser = app.add_subcommand(name, summary);
        parser->allow_extras();
        parser->group("Commands");
        return parser;
    }

    // Null when there is none, and of "help", which is no entry.
    const Entry* FindEntry(std::string_view name) const {
        const auto found = std::ranges::find_if(
            entries, [name](const auto& entry) { return entry.command->name == name; });
        return found == entries.end() ? nullptr : &*found;
    }

    // Of the command that was read; empty for none.
    std::string CommandName() const {
        const auto parsed = app.get_subcommands();
        return parsed.empty() ? "" : parsed.front()->get_name();
    }

    Answer Help(const std::string& topic) const {
        const std::string name(kProgramName);
        if (topic.empty() || topic == "help") {
            return {0, app.get_formatter()->make_help(&app, name, CLI::AppFormatMode::Normal), ""};
        }
        const Entry* entry = FindEntry(topic);
        if (entry == nullptr) return AnswerOf(UnknownCommand(topic));
        return {0, entry->parser->help(name), ""};
    }

    Failure UnknownCommand(const std::string& name) const {
        std::vector<std::string> names = {"help"};
        for (const Entry& entry : entries) names.push_back(entry.command->name);
        return {kWrongUse, "unknown command " + Quoted(name) + DidYouMean(name, names)};
    }

    Answer WrongUse(const std::string& problem) const {
        const std::string name = CommandName();
        return {kWrongUse, "",
                problem + "; see \"tolvane-cli help" + (name.empty() ? "" : " " + name) + "\""};
    }

    std::optional<Failure> CheckLeftOver() const {
        const auto parsed = app.get_subcommands();
        if (!parsed.empty()) {
            if (auto failure = CheckTexts(CommandName(), parsed.front()->remaining())) {
                return failure;
            }
        }
        const auto before = app.remaining();
        if (parsed.empty() && !before.empty() && !before.front().starts_with('-')) {
            return UnknownCommand(before.front());
        }
        return CheckTexts("", before);
    }

    Answer RunParsed() {
        if (const auto failure = CheckLeftOver()) return AnswerOf(*failure);
        const std::string name = CommandName();
        if (name.empty()) {
            return {kWrongUse, Help("").output,
                    "no command given: choose one of those in the help"};
        }
        if (help->parsed()) return Help(helpTopic);
        if (options.json && options.csv) {
            return WrongUse("--json beside --csv: take one of them");
        }
        std::string output;
        const auto failure = FindEntry(name)->command->run(options, output);
        return failure ? AnswerOf(*failure, output) : Answer{0, output, ""};
    }

    CLI::App app;
    CLI::App* help = nullptr;
    std::string helpTopic;
    Options options;
    std::vector<Entry> entries;
};

}  // namespace

Answer AnswerCommandLine(std::span<const Command> commands, int argc, const char* const* argv) {
    return CommandParser(commands).Run(argc, argv);
}

}  // namespace cli
