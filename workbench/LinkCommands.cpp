#include <algorithm>
#include <iostream>

#include "common/Resources.h"
#include "doors/frmConnect.h"
#include "import/frmImport.h"
#include "options/frmOptions.h"
#include "platform/Files.h"
#include "workbench/Commands.h"
#include "workbench/ImportPrinter.h"

namespace kestrune::workbench {

namespace {

template <typename Items>
std::optional<std::size_t> Position(const Items& items, const Text& wanted) {
  const auto found = std::find(items.begin(), items.end(), wanted);
  if (found == items.end()) return std::nullopt;
  return static_cast<std::size_t>(found - items.begin());
}

/// Opens the list of views and takes the named one; what is not in the list cannot be chosen.
void ChooseView(frmOptions& form, const Text& view) {
  form.cmbViews.Drop();
  const auto at = Position(form.cmbViews.Items(), view);
  if (!at) {
    form.cmdCancel.Press();
    throw CommandError(u"The module has no view \"" + view + u"\".");
  }
  form.cmbViews.Choose(*at);
}

/// A template that the dialog does not take is answered with a message; nothing is changed then.
void PasteTemplate(frmOptions& form, ConsoleDesktop& desktop, const Text& mapping_template) {
  desktop.SetClipboardText(mapping_template);
  form.cmdMappings.Press();
  const int messages_before = desktop.MessagesShown();
  form.mnuMappings.Choose(form.mnuMappingsPaste);
  if (desktop.MessagesShown() == messages_before) return;
  form.cmdCancel.Press();
  throw CommandError(u"The template was not applied.");
}

void PrintOptions(const frmOptions& form, std::ostream& out) {
  out << ToUtf8(form.lblModule.Caption() + u" " + form.lblModulePath.Caption()) << '\n';
  out << "View: " << ToUtf8(form.cmbViews.Value()) << '\n';
  for (const auto& row : form.lvMappings.Rows()) {
    out << "  " << ToUtf8(row.Cells[0]);
    if (!row.Cells[1].empty()) out << " --> " << ToUtf8(row.Cells[1]);
    out << '\n';
  }
}

Text TextFile(const std::string& path) {
  return WidenLineFeeds(FromUtf8(ReadFile(FromUtf8(path))));
}

/// Runs the transfer to its end and closes the window. Throws CommandError when it did not complete, or left the package
/// out of line with the module.
void RunTransfer(Machine& machine, int item_id) {
  bool has_completed = false;
  std::optional<SynchronisationResult> result;
  machine.Desktop().UseForm<frmImport>([&](frmImport& form) {
    while (form.IsOpen()) {
      machine.Desktop().Tick();
      if (!form.cmdClose.Enabled()) continue;
      has_completed = form.List1.SelectedText() == LoadResText(text::kImportComplete);
      result = form.Result();
      form.cmdClose.Press();
    }
  });
  machine.Desktop().UseForm<frmOptions>([](frmOptions& form) { form.cmdOK.Press(); });
  ImportPrinter::PrintImports(machine.Desktop());
  machine.Host().Send(LoadResText(item_id));
  if (!has_completed) throw CommandError(u"The import did not complete.");
  if (result && !result->IsComplete()) {
    throw CommandError(u"The package is not in line with the module: " +
                       ToText(static_cast<long long>(result->Failed)) +
                       u" object(s) could not be imported, or not as a whole. The lines above say why.");
  }
}

}  // namespace

void Link(const Settings& settings, const std::string& module, const Terminal& terminal) {
  Machine machine(settings, terminal);
  const Text path = FromUtf8(module);
  bool is_listed = false;
  machine.Desktop().UseForm<frmConnect>([&](frmConnect& form) {
    machine.Desktop().Tick();
    const auto at = Position(form.lstModules.Items(), path);
    is_listed = at.has_value();
    if (!is_listed) return form.cmdCancel.Press();
    form.lstModules.ClickItem(*at);
    form.cmdOK.Press();
  });
  if (!machine.Host().Connect()) {
    throw CommandError(is_listed ? Text(u"The package was not linked.")
                                 : u"DOORS has no formal module \"" + path + u"\".");
  }
  terminal.out << ToUtf8(machine.Host().Package().name + u" is linked to " + path) << '\n';
}

void Unlink(const Settings& settings, const Terminal& terminal) {
  Machine machine(settings, terminal);
  if (!machine.Host().Disconnect()) throw CommandError(u"The package stays as it was.");
  terminal.out << ToUtf8(machine.Host().Package().name) << " is not linked any more\n";
}

void EditOptions(const Settings& settings, const std::string& view, const std::string& template_file,
                 bool print, const Terminal& terminal) {
  Machine machine(settings, terminal);
  const Text mapping_template = template_file.empty() ? Text() : TextFile(template_file);
  machine.Desktop().UseForm<frmOptions>([&](frmOptions& form) {
    const bool is_locked = !form.cmdOK.Enabled();
    if (is_locked) form.cmdCancel.Press();
    if (is_locked && (!view.empty() || !mapping_template.empty()))
      throw CommandError(u"The package is locked; its options cannot be changed.");
    if (is_locked) return;
    if (!view.empty()) ChooseView(form, FromUtf8(view));
    if (!mapping_template.empty()) PasteTemplate(form, machine.Desktop(), mapping_template);
    form.cmdOK.Press();
  });
  machine.Host().ClickMenu(LoadResText(text::kMenuOptions));
  if (!print) return;
  machine.Desktop().UseForm<frmOptions>([&](frmOptions& form) {
    PrintOptions(form, terminal.out);
    form.cmdCancel.Press();
  });
  machine.Host().ClickMenu(LoadResText(text::kMenuOptions));
}

void Transfer(const Settings& settings, int item_id, const Terminal& terminal) {
  Machine machine(settings, terminal);
  RunTransfer(machine, item_id);
}

void Locate(const Settings& settings, const std::string& element, const Terminal& terminal) {
  Machine machine(settings, terminal);
  const Text wanted = FromUtf8(element);
  const auto items = machine.Host().Model().Tree(machine.Host().Package().id);
  const auto is_wanted = [&](const TreeItem& item) {
    const auto carries = [&](const TaggedValueRow& tag) {
      return tag.name == u"Object Identifier" && tag.value == wanted;
    };
    return item.name == wanted || std::any_of(item.tagged_values.begin(), item.tagged_values.end(), carries);
  };
  const auto found = std::find_if(items.begin(), items.end(), is_wanted);
  if (found == items.end()) throw CommandError(u"The package has no element \"" + wanted + u"\".");
  machine.Host().Model().SelectElement(found->id);
  machine.Host().ClickMenu(LoadResText(text::kMenuLocate));
  for (const OpenModuleState& module : machine.Doors().OpenModules()) {
    if (!module.is_displayed || module.scrolled_to == 0) continue;
    terminal.out << "DOORS shows " << ToUtf8(module.path) << ", object " << module.scrolled_to << '\n';
    return;
  }
  throw CommandError(u"DOORS shows no object for it: is \"Absolute Number\" mapped, and the object there?");
}

}  // namespace kestrune::workbench
