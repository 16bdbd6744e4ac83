#pragma once
// Where the user's things are, by the environment.

#include <filesystem>
#include <string>

namespace ambrel {

// These throw std::runtime_error where there is no home folder.
std::filesystem::path userHome();
std::filesystem::path dataFolder();    // the program's own: $XDG_DATA_HOME/Ambrel
std::filesystem::path configFolder();  // of the choices: $XDG_CONFIG_HOME/Ambrel

// What works out expressions: beside the program that asks, if it is installed.
std::filesystem::path calculatorProgram();

// The value of an environment variable; empty when there is none.
std::string environmentVariable(const char* name);

}  // namespace ambrel
