#pragma once

/// Opens the help file that lies beside the program. False when there is none.
bool openHelpFile();
