// The commands of kestrune-workbench. Each prints on the terminal and throws CommandError or AutomationError,
// with one line for the user, when it cannot be carried out.
#pragma once

#include "workbench/Machine.h"

namespace kestrune::workbench {

// On a DOORS database
void LoadIntoDoors(const Settings& settings, const std::string& file, const std::string& folder,
                   const Terminal& terminal);
void ListModules(const Settings& settings, const Terminal& terminal);
void ListViews(const Settings& settings, const std::string& module, const Terminal& terminal);
void RunDxl(const Settings& settings, const std::string& script, const std::string& parameter,
            const Terminal& terminal);

// On a model
void NewModel(const Settings& settings, const Terminal& terminal);
void PrintTree(const Settings& settings, const Terminal& terminal);
void ListLinkedPackages(const Settings& settings, const Terminal& terminal);

// On both, through the add-in
void Link(const Settings& settings, const std::string& module, const Terminal& terminal);
void Unlink(const Settings& settings, const Terminal& terminal);
void EditOptions(const Settings& settings, const std::string& view, const std::string& template_file,
                 bool print, const Terminal& terminal);
/// `item_id` is the menu item: Import or Export.
void Transfer(const Settings& settings, int item_id, const Terminal& terminal);
void Locate(const Settings& settings, const std::string& element, const Terminal& terminal);
/// Plays a script of user actions; throws ScriptError.
void Play(const Settings& settings, const std::string& script, const Terminal& terminal);

}  // namespace kestrune::workbench
