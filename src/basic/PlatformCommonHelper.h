#pragma once

#include "zentra_export.h"

/// Gives the process the shell identity "TAV.Lens.ApplicationId.<value>" when the environment
/// variable "TAVLENS_APPLICATIONID" is set, so that the desktop groups the host's windows under it.
/// An unset or empty variable leaves the process as it is. On Windows the shell function is looked
/// up at run time; elsewhere the identity becomes the application's desktop file name.
class ZENTRA_EXPORT PlatformCommonHelper {
public:
    static void SetCurrentProcessApplicationId();

private:
    static void SetCurrentProcessExplicitAppUserModelID(wchar_t* id);
};
