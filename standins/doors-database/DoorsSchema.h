// The tables of a simulated DOORS database. docs/doors-stand-in.md explains them.
#pragma once

namespace kestrune::standins {

/// Tells the file from other SQLite databases, and this layout from later ones.
inline constexpr int kDoorsApplicationId = 0x4B444F52;
inline constexpr int kDoorsSchemaVersion = 2;

/// Statements that make the tables in an empty database. A trigger gives every new module DOORS' own
/// attributes, so that a module added by hand has them too.
extern const char* const kDoorsSchema;
/// What makes them of the tables of version 1.
extern const char* const kDoorsSchemaFrom1;

}  // namespace kestrune::standins
