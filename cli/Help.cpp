// SPDX-License-Identifier: MIT
#include "cli/Help.h"

#include <algorithm>

namespace usbhcdiag {
namespace {

constexpr size_t textColumn = 26;

/// `left` from column 3, `text` from `textColumn`, each further line of the text below the first.
std::string entry(const std::string& left, const std::string& text) {
    std::string result = "  " + left;
    result.append(result.size() < textColumn ? textColumn - result.size() : 1, ' ');
    for (const char character : text) {
        result += character;
        if (character == '\n') {
            result.append(textColumn, ' ');
        }
    }
    return result + "\n";
}

std::string optionEntry(const OptionSyntax& syntax) {
    std::string left = std::string("-") + syntax.shortName + ", --" + syntax.name;
    if (syntax.argument != nullptr) {
        left += std::string(" ") + syntax.argument;
    }
    return entry(left, syntax.help);
}

}  // namespace

std::string generalHelp() {
    std::string text =
        "Usage: usbhcdiag COMMAND [OPTION]...\n"
        "\n"
        "Diagnoses the USB host controllers of a Linux machine through CIM, the model that\n"
        "management servers speak. Without --server each command starts a private server\n"
        "(cimhost) with the diagnostics provider in it, and ends it again: nothing else needs\n"
        "to be installed or running.\n"
        "\n"
        "Commands (usbhcdiag COMMAND --help tells more):\n";
    for (const CommandSyntax& syntax : commandTable()) {
        text += entry(syntax.name, syntax.summary);
    }
    text += "\nOptions:\n";
    for (const OptionSyntax& syntax : optionTable()) {
        text += optionEntry(syntax);
    }
    text +=
        "\n"
        "Start with:\n"
        "  usbhcdiag run             the report on this machine's USB devices\n"
        "  usbhcdiag elements        the host controllers it can be filed under\n"
        "\n"
        "Exit status: 0 done (run: the result passed), 1 a failure (run: the result did not\n"
        "pass), 2 wrong usage, 3 the test had no device list to read.\n"
        "\n"
        "NO_COLOR in the environment turns colours off. The manual: man usbhcdiag\n";
    return text;
}

std::string commandHelp(const CommandSyntax& syntax) {
    std::string text =
        std::string("Usage: usbhcdiag ") + syntax.name + " [OPTION]...\n\n" + syntax.description;
    text += "\nOptions:\n";
    for (const OptionSyntax& option : optionTable()) {
        const bool taken = std::find(syntax.options.begin(), syntax.options.end(), option.option) !=
                           syntax.options.end();
        if (taken || option.option == Option::help) {
            text += optionEntry(option);
        }
    }
    return text + "\nExamples:\n" + syntax.examples;
}

std::string versionText() {
    return "usbhcdiag " ZORVA_VERSION "\n";
}

}  // namespace usbhcdiag
