// Set-up for scheme tests: a program folder, its settings, a recording notifier and the schemes
// reporting to it (link pentalink_appearance).
#pragma once

#include "appearance/colourscheme.h"
#include "core/settings.h"
#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <gtest/gtest.h>

class SchemeTest : public ::testing::Test {
protected:
    // `shipped`: the folder starts with the shipped "all.col".
    explicit SchemeTest(bool shipped = false) {
        if (shipped)
            m_folder.copyShipped(QStringLiteral("all.col"));
        m_scheme.setNotifier(&m_notifier);
    }

    TestFolder m_folder;
    Settings m_settings = Settings::forFolder(m_folder.path());
    RecordingNotifier m_notifier;
    ColourScheme m_scheme{m_settings};
};
