// Registers the perms of the simulated DOORS, and lets a test interrupt a script at the n-th use of one.
#pragma once

#include "platform/Platform.h"
#include "standins/doors-database/DoorsSession.h"
#include "standins/dxl/Library.h"
#include "standins/dxl/RunState.h"

namespace kestrune::standins {

class PermTable {
 public:
  PermTable(dxl::Library& library, DoorsSession& session, ObjectFactory& objects)
      : session(session), objects(objects), library_(library) {}

  /// See Library; the session must outlive the library. A perm counts its texts as work.
  void Add(TextView signature, dxl::Perm perm);
  void AddLoop(TextView signature, dxl::Loop start);
  void AddType(TextView name) { library_.AddType(name); }
  void AddIdentity(TextView type) { library_.AddIdentity(type); }
  void AddAlias(TextView alias, TextView type) { library_.AddAlias(alias, type); }

  /// Calls `interrupt` before the n-th perm from now on (1: the next one); what it throws ends the script.
  void InterruptAt(int n, std::function<void()> interrupt);
  /// Takes back an InterruptAt that has not happened.
  void Spare() { countdown_ = 0; }

  DoorsSession& session;
  ObjectFactory& objects;

 private:
  void Count();

  dxl::Library& library_;
  int countdown_ = 0;  // 0: no interruption is due
  std::function<void()> interrupt_;
};

void AddItemPerms(PermTable& table);       // items, folders, projects, the database
void AddModulePerms(PermTable& table);     // opening, closing, asking about modules
void AddViewPerms(PermTable& table);       // views and filters
void AddObjectPerms(PermTable& table);     // objects
void AddObjectLoops(PermTable& table);     // and the ways to walk them
void AddAttributePerms(PermTable& table);  // attribute definitions
void AddValuePerms(PermTable& table);      // attribute values
void AddOlePerms(PermTable& table);        // automation objects

/// All of them. Handle types are made first, so that the order does not matter.
void AddDoorsPerms(PermTable& table);

}  // namespace kestrune::standins
