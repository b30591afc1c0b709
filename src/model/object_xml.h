#pragma once

#include "zentra_export.h"

#include <QString>

/// Pick the head data of an object's XML text (as `Object::object_to_xml` writes it) by plain
/// text search, without parsing. Each takes the first occurrence anywhere in the text, which is
/// the `object` element's since the writers put it first. A text that lacks the searched marker
/// gives whatever the failed search leaves; nothing is reported.
namespace model {

/// The text behind the first "ID=" and its opening quotation mark, up to the next quotation mark.
ZENTRA_EXPORT QString xml_object_id(const QString& xml);
/// The number behind the first "VERSION=", read as base-10; 0 where there is none.
ZENTRA_EXPORT long xml_object_version(const QString& xml);
/// The text between the first "<classname>" and the following "</class"; empty where either
/// is missing.
ZENTRA_EXPORT QString xml_classname(const QString& xml);

} // namespace model
