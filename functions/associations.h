#pragma once

int acetFilenameAcadRoot();      // acet-filename-acad-root
int acetFilenameAssociatedApp(); // acet_filename_associated_app
int wexoOpendefaultapp();        // wexo_opendefaultapp
