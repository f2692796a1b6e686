"""Makes the completions of the tool for bash, zsh and fish from what it says to --help. A placeholder that is not known
here stops the build, so that a new option cannot come without its completion."""

import re

from help_text import commands_of, help_of

# What may stand in the place of what.
FILE, PROJECT, EITHER, WORDS, LIST, PREFIXES = range(6)
KINDS = {"FILE": FILE, "PROJECT": PROJECT, "OLD": EITHER, "NEW": EITHER, "KINDS": LIST, "LIMIT": PREFIXES, "N": WORDS}


class Values:
    """What completes the value of an option, or an argument: files, folders that are projects, or words."""

    def __init__(self, entry, command):
        placeholder = entry.value if entry.names[0].startswith("-") else entry.names[0]
        if not entry.choices and placeholder not in KINDS:
            raise ValueError(f"what completes {placeholder} is not known: {entry}")
        self.placeholder = placeholder
        self.kind = WORDS if entry.choices else KINDS[placeholder]
        self.words = list(entry.choices)
        if placeholder == "N":
            self.words = re.findall(r"'(\w+)'", entry.text)
        elif self.kind == LIST:
            self.words = re.split(r", | and ", re.search(r"a list of ([^;]+);", entry.text)[1])
        elif self.kind == PREFIXES:
            footer = " ".join(line for paragraph in command.footer for line in paragraph)
            self.words = re.findall(r"\b(?:fileSize|no[A-Z]\w+|getNumber\w+)", footer.split("NAME is one of")[1].split(". ")[0])
        if self.kind in (WORDS, LIST, PREFIXES) and not self.words:
            raise ValueError(f"no words for {placeholder}: {entry.text!r}")


def options_with_values(command):
    return [(option, Values(option, command)) for option in command.options if option.value]


def names_of(options):
    return " ".join(name for option in options for name in option.names)


BASH_HEAD = r"""# bash completion for quillmeter-cli, made from its --help

# Folders; a project bundle is a folder, too, and what is in it is nothing to choose from.
_quillmeter_cli_projects() {
    [[ $cur == *.xcodeproj/* ]] || _filedir -d
}

_quillmeter_cli_list() {
    local head=
    [[ $cur == *,* ]] && head=${cur%,*},
    COMPREPLY=($(compgen -P "$head" -W "$1" -- "${cur##*,}"))
    compopt -o nospace
}

_quillmeter_cli_prefixes() {
    COMPREPLY=($(compgen -W "$1" -- "$cur"))
    compopt -o nospace
}

_quillmeter_cli() {
    local cur prev words cword split
    _init_completion -s || return
    local command= at
    for ((at = 1; at < cword; at++)); do
        [[ ${words[at]} == -* ]] && continue
        command=${words[at]}
        break
    done
"""


def bash_action(values):
    if values.kind == FILE or values.kind == EITHER:
        return "_filedir"
    if values.kind == PROJECT:
        return "_quillmeter_cli_projects"
    words = "'" + " ".join(values.words) + "'"
    if values.kind == LIST:
        return "_quillmeter_cli_list " + words
    if values.kind == PREFIXES:
        return "_quillmeter_cli_prefixes " + words
    return f'COMPREPLY=($(compgen -W {words} -- "$cur"))'


def bash(program, top, commands):
    lines = [BASH_HEAD + "    case $command:$prev in"]
    for name, command in commands:
        for option, values in options_with_values(command):
            patterns = " | ".join(f"{name}:{option_name}" for option_name in option.names)
            lines.append(f"        {patterns}) {bash_action(values)}; return ;;")
    lines += ["    esac", "    $split && return", "    case $command in"]
    names = " ".join(name for name, _ in commands)
    lines.append(f"""        '') COMPREPLY=($(compgen -W '{names} {names_of(top.options)}' -- "$cur")) ;;""")
    for name, command in commands:
        action = bash_action(Values(command.arguments[0], command))
        options = names_of(command.options)
        lines.append(f"        {name})")
        lines.append(f"""            if [[ $cur == -* ]]; then COMPREPLY=($(compgen -W '{options}' -- "$cur")); else {action}; fi ;;""")
    lines += ["    esac", "} &&", f"    complete -F _quillmeter_cli {program}", ""]
    return "\n".join(lines)


def zsh_quoted(text, special):
    for character in special:
        text = text.replace(character, "\\" + character)
    return text.replace("'", "'\\''")


def zsh_action(values):
    if values.kind == FILE or values.kind == EITHER:
        return "_files"
    if values.kind == PROJECT:
        return "_quillmeter_cli_projects"
    if values.kind == LIST:
        return f" _values -s , {values.placeholder} " + " ".join(values.words)
    if values.kind == PREFIXES:
        return "compadd -S \"\" -- " + " ".join(values.words)
    return "(" + " ".join(values.words) + ")"


def zsh_option(option, values, indentation):
    text = zsh_quoted(option.text, "[]")
    value = f":{values.placeholder}:{zsh_action(values)}" if values else ""
    repeated = "*" if values and values.kind == PREFIXES else ""
    others = "" if repeated or len(option.names) == 1 else "(" + " ".join(option.names) + ")"
    for name in option.names:
        ending = ("=" if name.startswith("--") else "+") if values else ""
        yield f"{indentation}'{others}{repeated}{name}{ending}[{text}]{value}' \\"


def zsh(program, top, commands):
    lines = [f"#compdef {program}", "# made from its --help", "",
             "# Folders; a project bundle is a folder, too, and what is in it is nothing to choose from.",
             "_quillmeter_cli_projects() {", "  [[ $PREFIX == *.xcodeproj/* ]] || _files -/", "}", "",
             "_quillmeter_cli() {", "  local curcontext=$curcontext state line", "  local -a commands", "  commands=("]
    lines += [f"    '{name}:{zsh_quoted(command.summary, ':')}'" for name, command in commands]
    lines += ["  )", "  _arguments -C \\"]
    for option in top.options:
        lines += zsh_option(option, None, "    ")
    lines += ["    '1:command:->command' \\", "    '*::argument:->argument' && return", "  case $state in",
              "    command) _describe -t commands command commands ;;", "    argument)", "      case $words[1] in"]
    for name, command in commands:
        lines.append(f"        {name}) _arguments -s \\")
        for option in command.options:
            lines += zsh_option(option, Values(option, command) if option.value else None, "          ")
        specifications = []
        for place, argument in enumerate(command.arguments, 1):
            values = Values(argument, command)
            specifications.append(f"          '{'*' if argument.repeated else place}:{values.placeholder}:{zsh_action(values)}'")
        lines.append(" \\\n".join(specifications) + " ;;")
    lines += ["      esac ;;", "  esac", "}", "", "_quillmeter_cli \"$@\"", ""]
    return "\n".join(lines)


FISH_HEAD = r"""# fish completion for quillmeter-cli, made from its --help

# Whether the command is that one; without an argument, whether there is none yet.
function __quillmeter_cli_command
    for word in (commandline -opc)[2..-1]
        string match -q -- '-*' $word; and continue
        test "$word" = "$argv[1]"
        return
    end
    test -z "$argv[1]"
end

# Folders; a project bundle is a folder, too, and what is in it is nothing to choose from.
function __quillmeter_cli_projects
    set -l token (commandline -ct)
    string match -q -- '*.xcodeproj/*' $token; or __fish_complete_directories $token
end

# A list with commas, each word once.
function __quillmeter_cli_list
    set -l head (string replace -r -- '[^,]*$' '' (commandline -ct | string replace -r -- '^--[a-z]+=' ''))
    printf '%s\n' $head$argv
end

complete -c quillmeter-cli -f
"""


def fish_quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def fish_option(option, values, condition):
    names = " ".join("-l " + name[2:] if name.startswith("--") else "-s " + name[1:] for name in option.names)
    value = ""
    if values:
        value = {FILE: " -r -F", WORDS: " -x -a " + fish_quoted(" ".join(values.words)),
                 LIST: f" -x -a '(__quillmeter_cli_list {' '.join(values.words)})'",
                 PREFIXES: " -x -a " + fish_quoted(" ".join(values.words))}[values.kind]
    return f"complete -c quillmeter-cli -n '{condition}' {names}{value} -d {fish_quoted(option.text)}"


def fish(program, top, commands):
    lines = [FISH_HEAD]
    lines += [fish_option(option, None, "__quillmeter_cli_command") for option in top.options]
    for name, command in commands:
        condition = "__quillmeter_cli_command " + name
        lines.append(f"complete -c {program} -n __quillmeter_cli_command -a {name} -d {fish_quoted(command.summary)}")
        lines += [fish_option(option, Values(option, command) if option.value else None, condition)
                  for option in command.options]
        if Values(command.arguments[0], command).kind == PROJECT:
            lines.append(f"complete -c {program} -n '{condition}' -a '(__quillmeter_cli_projects)'")
        else:
            lines.append(f"complete -c {program} -n '{condition}' -F")
    return "\n".join(lines) + "\n"


def completions(program):
    """The file of each shell and its text."""
    top = help_of(program)
    commands = commands_of(program, top)
    name = top.usage.split()[0]
    return {"bash": bash(name, top, commands), "zsh": zsh(name, top, commands), "fish": fish(name, top, commands)}
