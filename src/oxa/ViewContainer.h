#pragma once

#include "zentra_export.h"

#include "oxaIO/IView.h"

namespace oxa {

/// A named group of stored views, as a document's `viewContainer` holds them. It owns its views.
class ZENTRA_EXPORT ViewContainer : public oxaIO::IViewContainer {
public:
    ViewContainer(const std::wstring& id, const std::wstring& name);
    ViewContainer(const ViewContainer&) = delete;
    ViewContainer& operator=(const ViewContainer&) = delete;
    ~ViewContainer() override;

    void AddView(oxaIO::IView* view) override;
    const std::list<oxaIO::IView*>& Views() const override { return views; }
    bool IsEmpty() const override { return views.empty(); }
    std::wstring ID() const override { return id; }
    std::wstring Name() const override { return name; }

private:
    std::list<oxaIO::IView*> views;
    std::wstring id;
    std::wstring name;
};

} // namespace oxa
