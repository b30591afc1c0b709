#include "basic/PlatformCommonHelper.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <QGuiApplication>
#include <QString>
#endif

#include <cwchar>
#include <string>

namespace {
const wchar_t identity_prefix[] = L"TAV.Lens.ApplicationId.";
} // namespace

#ifdef Q_OS_WIN

void PlatformCommonHelper::SetCurrentProcessApplicationId() {
    wchar_t value[200];
    if (GetEnvironmentVariableW(L"TAVLENS_APPLICATIONID", value, 200) == 0)
        return;
    wchar_t id[256];
    swprintf(id, 256, L"%ls%ls", identity_prefix, value);
    SetCurrentProcessExplicitAppUserModelID(id);
}

void PlatformCommonHelper::SetCurrentProcessExplicitAppUserModelID(wchar_t* id) {
    HMODULE shell = GetModuleHandleW(L"Shell32.dll");
    if (!shell)
        shell = LoadLibraryW(L"Shell32.dll");
    if (!shell)
        return;
    using SetIdFunction = HRESULT(WINAPI*)(PCWSTR);
    auto set_id = reinterpret_cast<SetIdFunction>(GetProcAddress(shell, "SetCurrentProcessExplicitAppUserModelID"));
    if (set_id)
        set_id(id);
}

#else

void PlatformCommonHelper::SetCurrentProcessApplicationId() {
    const QByteArray value = qgetenv("TAVLENS_APPLICATIONID");
    if (value.isEmpty())
        return;
    std::wstring id = identity_prefix + QString::fromLocal8Bit(value).toStdWString();
    SetCurrentProcessExplicitAppUserModelID(id.data());
}

void PlatformCommonHelper::SetCurrentProcessExplicitAppUserModelID(wchar_t* id) {
    QGuiApplication::setDesktopFileName(QString::fromWCharArray(id));
}

#endif
