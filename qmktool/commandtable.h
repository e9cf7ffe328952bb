// The commands and options of qmktool with their descriptions: one table from which the command
// line is read and the help is made.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

struct ToolOptions;

struct ToolOption
{
    const char* szName;  // with its dashes
    const char* szValue; // what stands for the value in the help; null for an option without one
    const char* szText;  // what it does, in lines of at most 60 characters
    // The commands that take an option of this name so, each with a blank before and after it; null
    // for all that take it.
    const char* szOnly = nullptr;
};

struct ToolCommand
{
    const char* szName;
    const char* szFiles;   // the names of its files in the help
    size_t uFiles;         // how many
    const char* szOptions; // names of its options, each with a blank before and after it
    const char* szText;    // what it does
    int (*pRun)(const ToolOptions& options);
};

std::span<const ToolCommand> ToolCommands();
std::span<const ToolOption> AllToolOptions();

// Null when there is no such command.
const ToolCommand* FindToolCommand(std::string_view name);

// Null when the command does not take that option.
const ToolOption* FindToolOption(const ToolCommand& command, std::string_view name);

// The help of everything, and that of one command.
std::string ToolHelp();
std::string ToolHelp(const ToolCommand& command);

// The command or the option of the command that looks most like the word; null when none does.
const char* SuggestCommand(std::string_view word);
const char* SuggestOption(const ToolCommand& command, std::string_view word);
