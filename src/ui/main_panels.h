#pragma once

// The groups of the main window.

#include "ui/binder.h"
#include "ui/desk.h"

#include <QWidget>

namespace kestrum {

QWidget* InputPanel(Binder& bind, Desk& desk);  // fr1 and its groups

// In main_results.cpp
QWidget* FamilyTabs(Binder& bind, Desk& desk);    // ProfTab
QWidget* DiagramPanel(Binder& bind, Desk& desk);  // fr2, fr3
QWidget* ResultGroup(Binder& bind, Desk& desk);   // fr4, the design notes

}  // namespace kestrum
