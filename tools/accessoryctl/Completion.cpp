// completion: the scripts for the shells. All that they offer stands in them, so no key press ever talks to a
// service.
#include <algorithm>
#include <cstdio>

#include "tools/accessoryctl/Targets.h"
#include "tools/accessoryctl/Text.h"
#include "tools/accessoryctl/Verbs.h"

namespace accessory::ctl {

using tools::FieldDescription;
using tools::Interface;

namespace {

constexpr char kVerbs[] = "list describe call watch decode timeline dump wait doctor completion";

/// Everything that a script offers, as words between blanks.
struct Offers {
    std::string services;    ///< interfaces that services have
    std::string interfaces;  ///< all of them
    std::string operations;  ///< Interface.operation of the services
    std::string events;      ///< Interface.event of the notifiers
    std::string fields;      ///< a shell function that prints the fields of an operation
};

void addFields(const std::string& path, const FieldDescription& field, std::vector<std::string>* words) {
    if (field.inReply) return;
    if (field.shape != tools::Shape::kStructure) {
        const std::string word = path + "=";
        if (std::find(words->begin(), words->end(), word) == words->end()) words->push_back(word);
        return;
    }
    for (const FieldDescription& member : field.members)
        addFields(path + "." + member.name, member, words);
}

/// Operations of one name are offered the fields of all.
std::string fieldsCase(const Interface& interface, const std::string& name) {
    std::vector<std::string> words;
    for (const tools::Operation* each : findOperations(interface, name)) {
        for (const FieldDescription& field : each->fields)
            addFields(field.name, field, &words);
    }
    if (words.empty()) return {};
    return "        " + interface.name + "." + name + ") echo '" + joined(words, " ") + "' ;;\n";
}

Offers collect() {
    Offers offers;
    offers.fields = "_accessoryctl_fields() {\n    case $1 in\n";
    for (const Interface* each : tools::allInterfaces()) {
        offers.interfaces += each->name + " ";
        if (!each->isNotifier) offers.services += each->name + " ";
        for (const std::string& name : operationNames(*each)) {
            (each->isNotifier ? offers.events : offers.operations) += each->name + "." + name + " ";
            if (!each->isNotifier) offers.fields += fieldsCase(*each, name);
        }
    }
    offers.fields += "    esac\n}\n";
    return offers;
}

/// What both shells understand.
std::string sharedPart(const Offers& offers) {
    return "_accessoryctl_verbs='" + std::string(kVerbs) + "'\n" +             //
           "_accessoryctl_services='" + offers.services + "'\n" +              //
           "_accessoryctl_interfaces='" + offers.interfaces + "'\n" +          //
           "_accessoryctl_operations='" + offers.operations + "'\n" +          //
           "_accessoryctl_events='" + offers.events + "'\n" + offers.fields +  //
           R"(_accessoryctl_options() {
    case $1 in
        watch) echo '--where --count --for --reconnect --json --timeout --help' ;;
        timeline) echo '--output --json --timeout --help' ;;
        *) echo '--json --timeout --help' ;;
    esac
}
# verb, number of the word behind it, operation that was called
_accessoryctl_words() {
    case $1.$2 in
        describe.1) echo "$_accessoryctl_interfaces$_accessoryctl_operations$_accessoryctl_events" ;;
        call.1) echo "$_accessoryctl_operations" ;;
        call.*) _accessoryctl_fields "$3" ;;
        watch.*) echo "$_accessoryctl_events" ;;
        dump.1 | wait.1) echo "$_accessoryctl_services" ;;
        dump.2) echo notifier ;;
        completion.1) echo 'bash zsh' ;;
    esac
}
)";
}

constexpr char kBashPart[] = R"(_accessoryctl() {
    local current=${COMP_WORDS[COMP_CWORD]} words
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        words="$_accessoryctl_verbs --help --version"
    elif [[ $current == -* ]]; then
        words=$(_accessoryctl_options "${COMP_WORDS[1]}")
    elif [[ $current == = || ${COMP_WORDS[COMP_CWORD - 1]} == = ]]; then
        return  # a value
    else
        words=$(_accessoryctl_words "${COMP_WORDS[1]}" $((COMP_CWORD - 1)) "${COMP_WORDS[2]}")
    fi
    COMPREPLY=($(compgen -W "$words" -- "$current"))
    [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == *= ]] && compopt -o nospace
}
complete -F _accessoryctl accessoryctl
)";

constexpr char kZshPart[] = R"(_accessoryctl() {
    local current=${words[CURRENT]} offered
    if ((CURRENT == 2)); then
        offered="$_accessoryctl_verbs --help --version"
    elif [[ $current == -* ]]; then
        offered=$(_accessoryctl_options "${words[2]}")
    else
        offered=$(_accessoryctl_words "${words[2]}" $((CURRENT - 2)) "${words[3]}")
    fi
    if [[ ${words[2]} == call && $CURRENT -gt 3 ]]; then
        compadd -S '' -- ${=offered}
    else
        compadd -- ${=offered}
    fi
}
# From a folder of $fpath, this file is the body of the function when it is called for the first time.
if [[ $funcstack[1] == _accessoryctl ]]; then
    _accessoryctl "$@"
else
    compdef _accessoryctl accessoryctl
fi
)";

}  // namespace

int completion(const std::string& shell) {
    const std::string shared = sharedPart(collect());
    const bool isZsh = shell == "zsh";
    const std::string script =
        isZsh ? "#compdef accessoryctl\n" + shared + kZshPart
              : "# Completion of accessoryctl for bash; source it.\n" + shared + kBashPart;
    return fwrite(script.data(), 1, script.size(), stdout) == script.size() ? kDone : kFailed;
}

}  // namespace accessory::ctl
