// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/front/FrontMessage.h"

#include "pallistrom/Names.h"
#include "platform/linux/QtText.h"

namespace pallistrom::FrontMessage {

namespace {

// Desktops that know an application by its entry add the ending of the file.
std::string nameIn(const QVariant& argument) {
    QString name = argument.toString();
    const auto ending = QStringLiteral(".desktop");
    if (name.endsWith(ending)) {
        name.chop(ending.size());
    }
    return name.toUtf8().left(qsizetype{WindowClass::mostBytes}).toStdString();
}

} // namespace

std::optional<FrontReport>
read(const QString& member, const QString& signature, const QVariantList& arguments) {
    const auto isCall = [&](QStringView name, QStringView types, qsizetype count) {
        return member == name && signature == types && arguments.size() == count;
    };
    if (isCall(u"ShowWindow", u"ss", 2)) {
        return FrontReport::of({.instance = nameIn(arguments[0]), .name = nameIn(arguments[1])});
    }
    if (isCall(u"ShowNobody", u"", 0)) {
        return FrontReport::nobody();
    }
    if (isCall(u"Leave", u"", 0)) {
        return FrontReport::unknown();
    }
    return std::nullopt;
}

QString introspection() {
    return QStringLiteral(R"(  <interface name="%1">
    <method name="ShowWindow">
      <arg type="s" name="instance" direction="in"/>
      <arg type="s" name="name" direction="in"/>
    </method>
    <method name="ShowNobody"/>
    <method name="Leave"/>
  </interface>
)")
        .arg(qtText(Names::frontBusName));
}

} // namespace pallistrom::FrontMessage
