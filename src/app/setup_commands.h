#pragma once

// Handlers of the form `setup`: annex, class, combination values, method, options, stored defaults.

#include "app/session.h"

namespace kestrum {

void ChooseAnnex(Session& session, int annexindex);  // Cbo1993
bool AnnexParametersOpen(const ProjectState& s);     // the boxes of the factors may be typed
constexpr std::string_view kAnnexHint =
    "Parameters can only be changed when using EC3 - User defined";

// The class frame: which one is shown, under what caption.
enum class ClassFrame : std::uint8_t { none, norway, three };
ClassFrame ShownClassFrame(const ProjectState& s);
std::string_view ClassCaption(const ProjectState& s);
void ChooseClass(Session& session, int safetyclass);

// psi1 and psi2, Cbo_Q1_Psi1 and Cbo_Q2_Psi2 of both forms.
void ChoosePsi(Session& session, int which, int index);

// Frames that go with the load combination.
bool UserFactorsShown(const ProjectState& s);  // frULS
bool PsiShown(const ProjectState& s);          // frPsi

void ChooseMethod(Session& session, int method);  // rbtnMethod1, rbtnMethod2

enum class Option : std::uint8_t { elastic, conservative, flangebuckling, webbuckling };
void TickOption(Session& session, Option option, bool on);

// "Save as default": the setup file in the user's data folder. Says so when it cannot be written.
bool SaveAsDefault(Session& session, const std::string& folder);

}  // namespace kestrum
