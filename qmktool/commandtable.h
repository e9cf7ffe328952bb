// The commands and options of qmktool with their descriptions: one table from which the command
// line is read and from which the help is made.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

struct ToolOptions;

// What an option does with some of the commands.
struct ToolUse
{
    const char* szCommands = nullptr; // their names, each with a blank before and after it
    const char* szValue = nullptr;    // stands for the value in the help; null for none
    const char* szText = nullptr;     // what it does, in a line of at most 60 characters
};

struct ToolOption
{
    const char* szName; // with its dashes
    ToolUse aUses[2];   // the second one is empty when the option does the same with all commands
};

struct ToolCommand
{
    const char* szName;
    const char* szFiles; // the names of its files in the help
    size_t uFiles;       // how many
    const char* szText;  // what it does
    int (*pRun)(const ToolOptions& options);
};

// Null when there is no such command.
const ToolCommand* FindToolCommand(std::string_view name);

// Null when the command does not take that option.
const ToolUse* FindToolOption(const ToolCommand& command, std::string_view name);

// The help of the program, and the help of one command.
std::string ToolHelp();
std::string ToolHelp(const ToolCommand& command);

// The command or the option of the command that looks most like the word; null when none does.
const char* SuggestCommand(std::string_view word);
const char* SuggestOption(const ToolCommand& command, std::string_view word);
