// completion: the scripts for the shells. All that they offer stands in them, so no key press ever talks to a
// service.
#include <algorithm>
#include <cstdio>
#include <map>

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
    std::string shortNames;  ///< operations of the services without their interface
    std::string shortEvents;
    std::string fields;       ///< cases by operation: its fields
    std::string eventFields;  ///< cases by event: what a condition may name
    std::string bits;         ///< cases by operation=field: the bits of the mask
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

/// "        IAppleiAP2Manager.launchAPP) echo '...' ;;".
std::string caseOf(const std::string& pattern, const std::vector<std::string>& words) {
    if (words.empty()) return {};
    return "        " + pattern + ") echo '" + joined(words, " ") + "' ;;\n";
}

/// Operations of one name are offered the fields of all.
void addFieldsOf(const Interface& interface, const std::string& name, std::vector<std::string>* words) {
    for (const tools::Operation* each : findOperations(interface, name)) {
        for (const FieldDescription& field : each->fields)
            addFields(field.name, field, words);
    }
}

std::string bitsCases(const Interface& interface, const std::string& name) {
    std::string cases;
    for (const tools::Operation* each : findOperations(interface, name)) {
        for (const FieldDescription& field : each->fields) {
            const std::string pattern = name + "=" + field.name;
            cases += caseOf(interface.name + "." + pattern + " | " + pattern, field.choices);
        }
    }
    return cases;
}

std::string shellFunction(const char* name, const std::string& cases) {
    return std::string(name) + "() {\n    case $1 in\n" + cases + "    esac\n}\n";
}

using NamedFields = std::map<std::string, std::vector<std::string>>;

std::string casesOf(const NamedFields& fields) {
    std::string cases;
    for (const auto& [name, words] : fields)
        cases += caseOf(name, words);
    return cases;
}

Offers collect() {
    Offers offers;
    NamedFields fields;
    NamedFields eventFields;
    for (const Interface* each : tools::allInterfaces()) {
        offers.interfaces += each->name + " ";
        if (!each->isNotifier) offers.services += each->name + " ";
        for (const std::string& name : operationNames(*each)) {
            NamedFields& named = each->isNotifier ? eventFields : fields;
            addFieldsOf(*each, name, &named[each->name + "." + name]);
            addFieldsOf(*each, name, &named[name]);
            (each->isNotifier ? offers.events : offers.operations) += each->name + "." + name + " ";
            (each->isNotifier ? offers.shortEvents : offers.shortNames) += name + " ";
            offers.bits += bitsCases(*each, name);
        }
    }
    offers.fields = casesOf(fields);
    offers.eventFields = casesOf(eventFields);
    return offers;
}

/// What both shells understand.
std::string sharedPart(const Offers& offers) {
    return "_accessoryctl_verbs='" + std::string(kVerbs) + "'\n" +            //
           "_accessoryctl_services='" + offers.services + "'\n" +             //
           "_accessoryctl_interfaces='" + offers.interfaces + "'\n" +         //
           "_accessoryctl_operations='" + offers.operations + "'\n" +         //
           "_accessoryctl_events='" + offers.events + "'\n" +                 //
           "_accessoryctl_short_names='" + offers.shortNames + "'\n" +        //
           "_accessoryctl_short_events='" + offers.shortEvents + "'\n" +      //
           shellFunction("_accessoryctl_fields", offers.fields) +             //
           shellFunction("_accessoryctl_event_fields", offers.eventFields) +  //
           shellFunction("_accessoryctl_bits", offers.bits) +                 //
           R"sh(_accessoryctl_options() {
    case $1 in
        watch) echo '--where --count --for --reconnect --json --timeout --help' ;;
        timeline) echo '--output --json --timeout --help' ;;
        doctor) echo '--tidy --json --timeout --help' ;;
        *) echo '--json --timeout --help' ;;
    esac
}
# Names without their interface are offered to who has begun to type one.
_accessoryctl_named() {
    echo "$2"
    [[ -z $1 ]] || echo "$3"
}
# verb, number of the word behind it, operation that was called, what was typed of the word
_accessoryctl_words() {
    case $1.$2 in
        describe.1)
            _accessoryctl_named "$4" "$_accessoryctl_interfaces$_accessoryctl_operations$_accessoryctl_events" \
                "$_accessoryctl_short_names$_accessoryctl_short_events"
            ;;
        call.1) _accessoryctl_named "$4" "$_accessoryctl_operations" "$_accessoryctl_short_names" ;;
        call.*) _accessoryctl_fields "$3" ;;
        watch.*) _accessoryctl_named "$4" "$_accessoryctl_events" "$_accessoryctl_short_events" ;;
        dump.1 | wait.1) echo "$_accessoryctl_services" ;;
        dump.2) echo notifier ;;
        completion.1) echo 'bash zsh' ;;
    esac
}
# The fields of the events among the words of a watch; of all events when there is none.
_accessoryctl_conditions() {
    local word offered=
    for word in "$@"; do offered+=" $(_accessoryctl_event_fields "$word")"; done
    if [[ $offered != *=* ]]; then
        for word in $(echo "$_accessoryctl_short_events"); do
            offered+=" $(_accessoryctl_event_fields "$word")"
        done
    fi
    printf '%s\n' $(echo "$offered") | sort -u
}
)sh";
}

// What it offers nothing for is completed as the name of a file. The shell cuts words at '=' and '@'.
constexpr char kBashPart[] = R"sh(_accessoryctl() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        words="$_accessoryctl_verbs --help --version --json --timeout"
    elif [[ $current == -* ]]; then
        words=$(_accessoryctl_options "${COMP_WORDS[1]}")
    elif [[ $current == = || $previous == = ]]; then
        local at=$((COMP_CWORD - 2))
        [[ $current == = ]] && at=$((COMP_CWORD - 1)) current=
        words=$(_accessoryctl_bits "${COMP_WORDS[2]}=${COMP_WORDS[at]}")
    elif [[ $previous == *@ ]]; then
        # A file; left to the shell, what stands behind '@' would be a host.
        compopt -o filenames
        COMPREPLY=($(compgen -f -- "$current"))
        return
    elif [[ $previous == -o || $previous == --output ]]; then
        return  # a file
    elif [[ $previous == --where ]]; then
        words=$(_accessoryctl_conditions "${COMP_WORDS[@]:2:COMP_CWORD-3}")
    else
        words=$(_accessoryctl_words "${COMP_WORDS[1]}" $((COMP_CWORD - 1)) "${COMP_WORDS[2]}" "$current")
    fi
    COMPREPLY=($(compgen -W "$words" -- "$current"))
    [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == *= ]] && compopt -o nospace
}
complete -o default -F _accessoryctl accessoryctl
)sh";

constexpr char kZshPart[] = R"sh(_accessoryctl() {
    local current=${words[CURRENT]} previous=${words[CURRENT-1]} offered field bit
    if ((CURRENT == 2)); then
        offered="$_accessoryctl_verbs --help --version --json --timeout"
    elif [[ $current == -* ]]; then
        offered=$(_accessoryctl_options "${words[2]}")
    elif [[ $current == *=@* ]]; then
        compset -P '*=@'
        _files
        return
    elif [[ $previous == -o || $previous == --output || ${words[2]} == (decode|timeline) ]]; then
        _files
        return
    elif [[ $previous == --where ]]; then
        offered=$(_accessoryctl_conditions ${words[3,CURRENT-2]})
    elif [[ ${words[2]} == call && $current == *=* ]]; then
        field=${current%%=*}
        for bit in $(_accessoryctl_bits "${words[3]}=$field"); do offered+="$field=$bit "; done
    else
        offered=$(_accessoryctl_words "${words[2]}" $((CURRENT - 2)) "${words[3]}" "$current")
    fi
    if [[ $offered == *=(|[[:space:]]*) ]]; then
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
)sh";

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
