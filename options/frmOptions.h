// The dialog in which the user chooses, for one linked package, the view that restricts its import and what
// becomes of each DOORS attribute. A locked package can be looked at, not changed.
#pragma once

#include "options/Options.h"

namespace kestrune {

class frmOptions : public Form {
 public:
  enum CloseCode : std::int32_t { kAccepted = 0, kCancelled = 1, kSaveAndImport = 2 };

  explicit frmOptions(Doors& doors);

  TextView ClassName() const override { return u"frmOptions"; }

  /// Shows the options of the package and saves them unless the user cancels; returns how the dialog was
  /// closed.
  CloseCode ShowOptions(const orim::Repository& repository, const orim::Package& selected_package);
  /// The same for options that are loaded. After Cancel they hold what the user did, and are not saved.
  CloseCode Edit(Options& options);

  Label lblPackage{this, u"lblPackage"};
  Label lblPackageName{this, u"lblPackageName"};
  Label lblModule{this, u"lblModule"};
  Label lblModulePath{this, u"lblModulePath"};
  Label lblFilter{this, u"lblFilter"};
  ComboBox cmbViews{this, u"cmbViews"};
  Label lblRules{this, u"lblRules"};
  ListView lvMappings{this, u"lvMappings"};
  Button cmdMap{this, u"cmdMap"};
  Button cmdCombine{this, u"cmdCombine"};
  Button cmdRemove{this, u"cmdRemove"};
  Button cmdMappings{this, u"cmdMappings"};
  Button cmdReloadAttribs{this, u"cmdReloadAttribs"};
  Button cmdSaveAndImport{this, u"cmdSaveAndImport"};
  Button cmdOK{this, u"cmdOK"};
  Button cmdCancel{this, u"cmdCancel"};
  Button cmdHelp{this, u"cmdHelp"};
  MenuItem mnuMappingsCopy{this, u"mnuMappingsCopy"};
  MenuItem mnuMappingsPaste{this, u"mnuMappingsPaste"};
  MenuItem mnuMappingsDefault{this, u"mnuMappingsDefault"};
  Menu mnuMappings{this, u"mnuMappings", {&mnuMappingsCopy, &mnuMappingsPaste, &mnuMappingsDefault}};

 private:
  void Form_Load() override;
  void Form_CloseBox() override { CloseWith(kCancelled); }
  void cmbViews_DropDown();
  void Configure(bool combine);
  void cmdRemove_Click();
  void cmdReloadAttribs_Click();
  void ApplyTemplate(TextView new_template);
  void Accept(CloseCode code);
  void CloseWith(CloseCode code);

  /// A handler whose failure is told to the user and leaves the dialog as it is.
  Event Guarded(Event handler);
  void SetCaptions();
  Text ModulePathText() const;
  /// Lists the rules afresh and selects the rows of the attributes, or the first row.
  void Refill(const std::vector<Text>& attributes);
  void UpdateButtons();
  /// The slots of the selected rows, ascending.
  std::vector<std::size_t> SelectedSlots() const;
  /// The first attributes of the selected rows, in their order.
  std::vector<Text> SelectedAttributes() const;
  /// The wizard's rule texts for the attribute, and for the others likewise; "" when the user gives up.
  Text AskWizard(const Text& attribute, const std::vector<Text>& others, bool combine);
  /// Adds the rules, a line each, and returns their attributes.
  std::vector<Text> AddMappings(const Text& rules);
  void TellUnmappable(const std::vector<Text>& attributes) const;

  Doors& doors_;
  Options* options_ = nullptr;
  bool is_locked_ = false;
  CloseCode close_code_ = kCancelled;
};

/// The dialog in the form in which Options takes it.
Options::Dialog OptionsDialog(Doors& doors);

}  // namespace kestrune
