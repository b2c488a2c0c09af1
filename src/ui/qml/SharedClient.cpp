#include "SharedClient.h"

#include <QtGlobal>

namespace {
SharedClient* currentOwner = nullptr;
}

SharedClient::SharedClient(Factory factory) : factory_(std::move(factory))
{
    if (currentOwner)
        qFatal("SharedClient: a second owner of the process's client");
    currentOwner = this;
}

SharedClient::~SharedClient()
{
    currentOwner = nullptr;
}

SharedClient::Factory SharedClient::defaultFactory()
{
    return [] { return std::make_unique<VornClient>(); };
}

VornClient* SharedClient::instance()
{
    if (!currentOwner)
        qFatal("SharedClient: the client was asked for before its owner exists");
    return currentOwner->client();
}

VornClient* SharedClient::client()
{
    if (!client_)
        client_ = factory_();
    return client_.get();
}
