#include "basic/Zentra.h"

#include <QDebug>

Zentra::Zentra() { qDebug("Zentra Constructor %p\n", static_cast<void*>(this)); }

Zentra::~Zentra() { qDebug("Zentra Destructor %p\n", static_cast<void*>(this)); }
