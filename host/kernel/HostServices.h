#pragma once

#include "host/commands/PlotJob.h"
#include "host/drawing/Drawing.h"
#include "host/interpreter/Machine.h"
#include "host/kernel/input/AnswersFile.h"
#include "host/kernel/input/ScriptedInput.h"
#include "host/kernel/input/Transcript.h"
#include "host/kernel/profile/ProfileStore.h"
#include "host/kernel/windows/DrawingOverlay.h"
#include "host/kernel/windows/ProgressMeter.h"
#include "host/kernel/windows/UserInterface.h"
#include "storage/ProfileFolder.h"

#include <functional>
#include <string_view>

// What the documents of one host share. The owner of the host sets the members before the first document opens.
struct HostServices
{
    HostServices() = default;
    HostServices(const HostServices &) = delete;
    HostServices &operator=(const HostServices &) = delete;

    std::function<void(std::u16string_view)> print = [](std::u16string_view) {}; // on the command line
    // The program's own words, one line without a newline, on standard error.
    std::function<void(const QString &)> warn = [](const QString &) {};
    lisp::Machine::Limits machineLimits; // of documents that are opened from now on
    ProfileStore profile{profileFolder(), [this](const QString &text) { warn(text); }};
    AnswersFile answers;
    Transcript transcript;
    ScriptedInput scriptedInput{*this};
    UserInput *input = &scriptedInput; // never null, not owned
    NoUserInterface noWindows;
    UserInterface *userInterface = &noWindows; // never null, not owned
    NoDrawingOverlay noOverlay;
    DrawingOverlay *overlay = &noOverlay; // never null, not owned
    // Draws a drawing into a file; false, with a reason, when it cannot. This one never can.
    using Plotter = std::function<bool(const drawing::Drawing &, const commands::PlotJob &, std::u16string &failure)>;
    Plotter plotter = [](const drawing::Drawing &, const commands::PlotJob &, std::u16string &failure) {
        failure = u"There is nothing here to plot with.";
        return false;
    };
    ProgressMeter progressMeter{*this};
};
