#include "Playback/ScreenSaver.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>

namespace Flitmark
{

namespace
{

QDBusMessage MakeCall(const char* InMethod, const QVariantList& InArguments)
{
	constexpr const char* Service = "org.freedesktop.ScreenSaver";
	QDBusMessage Call =
		QDBusMessage::createMethodCall(Service, "/org/freedesktop/ScreenSaver", Service, QString::fromLatin1(InMethod));
	Call.setArguments(InArguments);
	return Call;
}

} // namespace

void FScreenSaver::SetHeldOff(bool bInHeldOff)
{
	if (bHeldOff == bInHeldOff)
	{
		return;
	}
	bHeldOff = bInHeldOff;
	if (bHeldOff)
	{
		HoldOff();
	}
	else
	{
		Release();
	}
}

void FScreenSaver::HoldOff()
{
	QDBusConnection Bus = QDBusConnection::sessionBus();
	if (bAsking || Cookie || !Bus.isConnected())
	{
		return;
	}
	bAsking = true;
	auto* const Watcher = new QDBusPendingCallWatcher(
		Bus.asyncCall(MakeCall("Inhibit", {QGuiApplication::applicationDisplayName(), tr("A video is playing")})),
		this);
	connect(Watcher, &QDBusPendingCallWatcher::finished, this,
			[this, Watcher]
			{
				Watcher->deleteLater();
				bAsking = false;
				const QDBusPendingReply<uint> Reply = *Watcher;
				if (Reply.isValid())
				{
					Cookie = Reply.value();
				}
				if (!bHeldOff)
				{
					Release();
				}
			});
}

void FScreenSaver::Release()
{
	if (Cookie)
	{
		QDBusConnection::sessionBus().asyncCall(MakeCall("UnInhibit", {*Cookie}));
		Cookie.reset();
	}
}

} // namespace Flitmark
