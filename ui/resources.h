#pragma once

/// Registers the images, fonts, style sheet and translation under ":/"; may be called repeatedly.
void loadUiResources();
