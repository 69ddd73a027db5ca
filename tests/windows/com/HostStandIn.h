// As much of a host as the callbacks ask for that open no dialog of the add-in's own.
#pragma once

#include "standins/StandInObject.h"

namespace kestrune::testing {

using standins::StandInObject;

struct HostModel {
  std::int32_t build = 827;
  bool is_locked = false;
  std::vector<std::string> calls;          // as "WriteOutput DOORS Text -1"
  std::function<void()> on_build = [] {};  // what befalls whoever asks for the build
  Object selected_package;
};

/// A package that is its own element, without tagged values.
class HostPackage : public StandInObject<HostPackage> {
 public:
  static constexpr const char16_t* kClassName = u"Package";
  explicit HostPackage(HostModel& model) : model_(model) {}
  static const Members& Table() {
    static const Members table = {
        {u"PackageID", {.get = [](HostPackage&) { return Variant(7); }}},
        {u"Element", {.get = [](HostPackage& package) { return package.AsObject(); }}},
        {u"Locked", {.get = [](HostPackage& package) { return Variant(package.model_.is_locked); }}},
        {u"TaggedValues", {.get = [](HostPackage& package) { return package.AsObject(); }}},
        {u"Count", {.get = [](HostPackage&) { return Variant(0); }}},
        {u"Refresh", {.call = [](HostPackage&, const Args&) { return Variant(); }}},
        {u"Flags", {.put = [](HostPackage&, const Variant&) {}}},
        {u"Save", {.call = [](HostPackage&, const Args&) { return Variant(); }}},
    };
    return table;
  }

 private:
  HostModel& model_;
};

class HostRepository : public StandInObject<HostRepository> {
 public:
  static constexpr const char16_t* kClassName = u"Repository";
  explicit HostRepository(HostModel& model) : model_(model) {}
  static const Members& Table() {
    static const Members table = {
        {u"LibraryBuild", {.get = [](HostRepository& host) { return host.Build(); }}},
        {u"SelectedPackage",
         {.call = [](HostRepository& host, const Args&) { return host.model_.selected_package; }}},
        {u"PackageByID", Noting(u"PackageByID", 1, [](HostRepository& host) { return host.Package(); })},
        {u"PackageByGuid", Noting(u"PackageByGuid", 1, [](HostRepository& host) { return host.Package(); })},
        {u"CreateOutputTab", Noting(u"CreateOutputTab", 1)},
        {u"WriteOutput", Noting(u"WriteOutput", 3)},
        {u"RefreshModelView", Noting(u"RefreshModelView", 1)},
    };
    return table;
  }

 private:
  using Answer = std::function<Variant(HostRepository&)>;
  static Member Noting(
      TextView name, std::size_t count, Answer answer = [](HostRepository&) { return Variant(); }) {
    const auto call = [name, answer](HostRepository& host, const Args& args) {
      Text line(name);
      for (const Variant& arg : args) line += u" " + arg.ToText();
      host.model_.calls.push_back(ToUtf8(line));
      return answer(host);
    };
    return {.call = call, .arg_count = count};
  }
  Variant Build() {
    model_.on_build();
    return model_.build;
  }
  Variant Package() { return Object(std::make_shared<HostPackage>(model_)); }

  HostModel& model_;
};

}  // namespace kestrune::testing
