// SPDX-License-Identifier: Apache-2.0
#include "SharedClient.h"

#include <QQmlEngine>
#include <QtGlobal>

namespace SharedClient {
namespace {

// Lives as a child of its engine, so the engine's end is the client's end.
class Holder : public QObject {
public:
    Holder(QQmlEngine& engine, Factory make) : QObject(&engine), factory(std::move(make))
    {
        setObjectName(QString::fromLatin1(kName));
    }

    static Holder* of(QQmlEngine& engine)
    {
        return static_cast<Holder*>(
            engine.findChild<QObject*>(QString::fromLatin1(kName), Qt::FindDirectChildrenOnly));
    }

    static constexpr const char* kName = "vornlink.sharedClient";
    Factory factory;
    std::unique_ptr<VornClient> client;
};

}  // namespace

Factory deviceFactory()
{
    return [] { return std::make_unique<VornClient>(); };
}

void provide(QQmlEngine& engine, Factory factory)
{
    if (Holder::of(engine))
        qFatal("SharedClient: the engine already has a client");
    new Holder(engine, std::move(factory));
}

VornClient* of(QQmlEngine& engine)
{
    Holder* holder = Holder::of(engine);
    if (!holder)
        qFatal("SharedClient: the engine was asked for a client it was not given (SharedClient::provide)");
    if (!holder->client)
        holder->client = holder->factory();
    return holder->client.get();
}

}  // namespace SharedClient
