#!/usr/bin/env python3
"""Holds the README and the pages of docs to what they say: ReadmeTest.py FOLDER, with the folder of
the built programs. Commands are run and their output compared, and what is named has to be there.
Nothing is installed or built: "./run.sh hand ..." is run as that folder's tolvane-cli."""
import json
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PAGES = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
TIMING = re.compile(r"\d[\d,.]*(?= (?:ns|µs|ms|s|hands a second)\b)")
SECONDS_FOR_A_COMMAND = 60


class Page:
    def __init__(self, path):
        self.path = path
        self.text = path.read_text(encoding="utf-8")
        self.blocks = list(self.find_blocks())  # (number of the first line, lines)
        blocks = "\n".join(line for _, lines in self.blocks for line in lines)
        self.spans = re.findall(r"`([^`\n]+)`", self.text.replace(blocks, ""))

    def find_blocks(self):
        """Fenced ones, and those indented by four after an empty line."""
        block, start, fenced, before = [], 0, False, ""
        for number, line in enumerate(self.text.split("\n") + [""], 1):
            indented = line.startswith("    ") and (block or not before.strip())
            if line.startswith("```"):
                fenced = not fenced
            elif fenced or indented:
                start = start or number
                block.append(line if fenced else line[4:])
                continue
            before = line
            if block:
                yield start, block
            block, start = [], 0

    def tables(self):
        """The rows of each table, as lists of cells; its heads first."""
        for table in re.findall(r"(?:^\|.*\n)+", self.text, re.M):
            rows = [re.split(r"(?<!\\)\|", row)[1:-1] for row in table.splitlines()]
            yield [[cell.strip() for cell in row] for row in rows if not set("".join(row)) <= set("-")]

    def table(self, head):
        """The rows of the table whose first column has this head, without the heads."""
        return [row for table in self.tables() if table[0][0] == head for row in table[1:]]


class Checks:
    def __init__(self, programs):
        self.programs = programs
        self.complaints = []
        self.commands = self.names = 0
        self.lists = "\n".join(path.read_text() for path in ROOT.glob("**/CMakeLists.txt")
                               if "build" not in path.relative_to(ROOT).parts)
        presets = json.loads((ROOT / "CMakePresets.json").read_text())
        self.presets = {preset["name"] for preset in presets["configurePresets"] if not preset.get("hidden")}
        self.build_presets = {preset["name"] for preset in presets["buildPresets"]}
        self.tests = "\n".join(path.read_text() for path in ROOT.glob("tests/**/*.cpp"))

    def expect(self, holds, place, complaint):
        self.names += 1
        if not holds:
            self.complaints.append(f"{place}: {complaint}")

    def run(self, name, arguments, folder):
        """The status and what was printed."""
        self.commands += 1
        done = subprocess.run([self.programs / name, *arguments], cwd=folder, encoding="utf-8", check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=SECONDS_FOR_A_COMMAND)
        return done.returncode, done.stdout

    # Commands and what they print

    def check_block(self, page, start, lines):
        place = f"{page.path.name}:{start}"
        first = lines[0].split()
        if first[0] == "$":
            self.check_dialogue(place, lines)
        elif first[1:2] != ["="] and (first[0].startswith(("./", "build/")) or shutil.which(first[0])):
            for line in lines:
                self.check_line(page, f"{place}, {line.strip()}", line)

    def check_dialogue(self, place, lines):
        """Each line with a "$" is a command, and what follows is what it prints."""
        for part in re.split(r"^\$ ", "\n".join(lines), flags=re.M)[1:]:
            command, _, shown = part.partition("\n")
            words = shlex.split(command)
            if words[0] != "./run.sh":
                self.expect(False, place, f"no way to check {command}")
                continue
            with tempfile.TemporaryDirectory() as folder:
                status, printed = self.run("tolvane-cli", words[1:], folder)
                self.expect(status == 0, place, f"{command} ends with status {status}")
                self.expect(not list(Path(folder).iterdir()), place, f"{command} leaves a file")
            self.expect(is_shown(shown, printed), place, f"{command} does not print what is shown, but\n{printed}")

    def check_line(self, page, place, line):
        """A line of the shell, of commands that are only looked at or have no output shown."""
        lexer = shlex.shlex(line, posix=True, punctuation_chars=True)
        lexer.whitespace_split = True
        words, commands = list(lexer), [[]]
        for word in words:
            if word in ("|", "&&", "(", ")"):
                commands.append([])
            else:
                commands[-1].append(word)
        for command in filter(None, commands):
            self.check_command(page, place, command)

    def check_command(self, page, place, words):
        name = Path(words[0]).name
        if words[0].startswith(("./", "tools/")):
            for pattern in [after for word, after in zip(words, words[1:]) if word == "-R"]:
                self.expect(list(ROOT.glob(f"tests/**/*{pattern}*.cpp")), place, f"no test is named {pattern}")
            for option in [word for word in words[1:] if word.startswith("--")]:
                script = ROOT / words[0]
                self.expect(script.exists() and option in script.read_text(), place, f"does not know {option}")
        elif words[0].startswith("build/"):
            self.check_built(place, name, words[1:])
        elif name == "git" and (ROOT / ".git").exists() and shutil.which(name):
            words[1:1] = ["-c", "safe.directory=*"]  # the checkout may be somebody else's
            listed = subprocess.run(words, cwd=ROOT, stdout=subprocess.PIPE, check=False)
            self.expect(listed.returncode == 0 and listed.stdout, place, "lists nothing")
        elif name == "xargs":
            tool = next((word for word in words[1:] if word.startswith("clang")), "(what?)")
            told = re.search(rf"apt-get install [\w\s-]*\b{tool}\b", page.text)
            self.expect(told, place, f"nobody is told to install {tool}")
        else:
            # Of these only the names are looked at: a build made this test's programs, PackageTest packs.
            self.expect(name in ("cd", "cmake", "cpack", "git"), place, f"no way to check {name}")

    def check_built(self, place, name, arguments):
        """Tests are run; benchmarks, which take longer, only tell which there are."""
        if not (self.programs / name).exists() or name.endswith("_fuzz"):
            return  # not of this preset: that CMake knows it is checked as for every other name
        if name == "tolvane-bench":
            arguments = [*arguments, "--benchmark_list_tests=true"]
        with tempfile.TemporaryDirectory() as folder:
            status, printed = self.run(name, arguments, folder)
        ran = printed.strip() and "Running 0 tests" not in printed and "Failed to match" not in printed
        self.expect(status == 0 and ran, place, f"status {status}, or nothing to run")

    # What is named

    def check_names(self, page):
        place = page.path.name
        for target in re.findall(r"\]\(([^)#\s]+)[^)]*\)", page.text):
            if "://" not in target:
                file = page.path.parent / target
                self.expect(file.exists() and (file.is_dir() or file.stat().st_size), place, f"no {target}")
        roots = "|".join(re.escape(entry.name) for entry in ROOT.iterdir() if entry.name != ".git")
        for name in set(re.findall(rf"(?<![\w/.~-])(?:\./)?((?:{roots}|build)(?:/[\w.-]+)+|[\w-]+\.sh)", page.text)):
            self.check_path(place, name.rstrip("."))
        for name in re.findall(r"TOLVANE_\w+", page.text):
            self.expect(re.search(rf"{name}\b", self.lists + self.tests), place, f"nothing reads {name}")
        for name in re.findall(r"`(\w+Test)`", page.text):
            self.expect(name in self.lists, place, f"no test {name}")
        for row in page.table("folder"):
            for name in re.findall(r"`([^`]+)`", row[0]):
                self.expect((ROOT / name).is_dir(), place, f"no folder {name}")
        for name in re.findall(r"--preset (\w+)", page.text):
            self.expect({name} <= self.presets & self.build_presets, place, f"no preset {name}")
        told = {row[0].strip("`") for row in page.table("preset")}
        self.expect(told in (set(), self.presets), place, f"the presets are {self.presets}")

    def check_path(self, place, name):
        parts = name.split("/")
        if parts[0] == "build":
            self.expect(parts[1] in self.presets, place, f"no preset builds in {name}")
            program = re.sub("^[A-Z]+_", "_", parts[-1])  # NAME_fuzz stands for any
            known = parts[2:3] != ["bin"] or re.search(rf"{re.escape(program)}\b", self.lists)
            self.expect(known, place, f"no CMakeLists.txt knows the program of {name}")
            return
        path = ROOT.joinpath(*(part for part in parts if not part.isupper()))  # DIR stands for any
        self.expect(path.exists() or path.with_suffix(".h").exists(), place, f"no {name}")
        if path.suffix == ".sh" or parts == [".ci", "run"]:
            right = path.exists() and path.stat().st_mode & 0o111
            self.expect(right, place, f"{name} is not executable")
            parsed = subprocess.run(["bash", "-n", path], capture_output=True, encoding="utf-8", check=False)
            self.expect(parsed.returncode == 0, place, f"{name} is no valid script: {parsed.stderr}")

    # Single promises

    def check_command_table(self, readme):
        """The commands there are, with the options that the README names."""
        rows = readme.table("command")
        self.expect(rows, readme.path.name, "has no table of commands")
        helps = {}
        for row in rows:
            command = row[0].strip("`").split()[0]
            helps[command] = "" if command == "help" else self.help_of(readme, command)
            for option in re.findall(r"--\w+", "".join(row)):
                self.expect(option in helps[command], readme.path.name, f"{command} has no {option}")
        for option in re.findall(r"--\w+", " ".join(readme.spans)):
            self.expect(any(option in text for text in helps.values()), readme.path.name, f"no {option}")

    def help_of(self, readme, command):
        status, text = self.run("tolvane-cli", ["help", command], ROOT)
        self.expect(status == 0, readme.path.name, f"no command {command}")
        return text

    def check_performance_table(self, readme):
        rows = [row[0] for row in readme.table("what")]
        self.expect(rows, readme.path.name, "has no table of times")
        if not (self.programs / "tolvane-bench").exists():
            return
        _, listed = self.run("tolvane-bench", ["--benchmark_list_tests=true"], ROOT)
        listed = re.sub(r"/iterations:\d+/manual_time", "", listed)  # of those that time themselves
        measured = listed.replace("_", " ").split("\n")[:-1]
        self.expect(rows == measured, readme.path.name, f"the benchmarks are not {rows}, but {measured}")

    def check_analysis_files(self, page):
        """The lines shown of the files stand in those that an analysis writes."""
        with tempfile.TemporaryDirectory() as folder:
            self.run("tolvane-cli", ["analyze", "300", "--summary", "summary", "--detail", "detail"], folder)
            written = {name: (Path(folder) / name).read_text() for name in ("summary", "detail")}
        blocks = ["\n".join(lines) for _, lines in page.blocks]
        self.expect(len(blocks) == 2, page.path.name, "is expected to show two files")
        for block in blocks:
            name = "summary" if block.startswith("Coin;") else "detail"
            shown = block.replace("\n", "\n...\n") + "\n..." if name == "detail" else block
            self.expect(is_shown(shown, written[name]), page.path.name, f"this is not in the {name}:\n{block}")


def is_shown(shown, printed):
    """Dots alone in a line stand for any lines, dots in a line for anything; times are not compared."""
    pattern = ""
    for line in TIMING.sub("#", shown.strip()).split("\n"):
        text = re.escape(line.rstrip()).replace(r"\.\.\.", ".*")
        pattern += r"(?:.*\n)*?" if line.strip() == "..." else text + r"[ \t]*\n"
    return re.fullmatch(pattern, TIMING.sub("#", printed.strip()) + "\n") is not None


def main():
    checks = Checks(Path(sys.argv[1]).resolve())
    for page in map(Page, PAGES):
        for start, lines in page.blocks:
            checks.check_block(page, start, lines)
        checks.check_names(page)
        if page.path.name == "README.md":
            checks.check_command_table(page)
            checks.check_performance_table(page)
        if page.path.name == "analysis-files.md":
            checks.check_analysis_files(page)
    print(f"{checks.commands} commands run, {checks.names} things looked at on {len(PAGES)} pages.")
    for complaint in checks.complaints:
        print(complaint)
    return 1 if checks.complaints or checks.commands == 0 else 0


sys.exit(main())
