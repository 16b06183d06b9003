#pragma once

// The record as one flat JSON object: every field under its canonical name, the result rows as
// text, the texts that are made from the state. Numbers read back to the value they came from.

#include "core/failure.h"

#include <string>
#include <string_view>

namespace kestrum {

struct ProjectState;

// All of the record after a pass. The rows are empty when the pass failed.
std::string StateJson(const ProjectState& s);

// Only what the project file keeps.
std::string InputsJson(const ProjectState& s);

// The three blocks of result rows: {"section":[..],"buckling":[y, z, lt],"deflection":[z, y]}.
std::string RowsJson(const ProjectState& s);

// What was checked and has a ratio, in the order of the list: [{"check":"section_My","formula":
// "My,Ed/My,Rd","clause":"6.2.5","place":{"x":0.5},"ir":0.7,"limit":1,"governs":true,
// "terms":[55,78.6]}, ..]. `place` is null for the whole member; a point of a section and a segment
// of the member are counted from 1. `governs`: it is the check that its row shows. Checks of a
// deflection that is no part of the result are left out.
std::string ChecksJson(const ProjectState& s);

// The design notes of the result: [{"id":"D201","text":".."}, ..].
std::string NotesJson(const ProjectState& s);

// {"stage":"buckling control","cause":..,"quantity":"Ncr,z","value":512,..,"text":..}, or null.
std::string FailureJson(const Failure& failure);

// [{"field":"nload","row":1,"value":3000,"unit":"kN","category":"G","direction":"x","text":..}, ..]
std::string DroppedJson(const ProjectState& s);

// A text as a JSON string with its quotes.
std::string JsonText(std::string_view text);

// The shortest decimal that reads back; null for what JSON cannot say.
std::string JsonNumber(double value);
std::string JsonNumber(float value);

}  // namespace kestrum
