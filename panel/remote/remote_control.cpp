// SPDX-License-Identifier: MIT
#include "remote/remote_control.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QMetaObject>

#include "remote/json_rpc.h"
#include "remote/methods.h"
#include "remote/settle.h"
#include "remote/standard_streams.h"
#include "remote/trace.h"

namespace panel {

class RemoteControl::Impl {
 public:
  Impl(HostSession& session, PanelFace& face, RemoteOptions options, pnl::rig::Rig& rig)
      : session_(session),
        rig_(rig),
        trace_(session),
        world_{session, face, rig, options, trace_, boxes_, arguments_, request_},
        methods_(AllMethods()) {
    called_ =
        QObject::connect(&session, &HostSession::Called, &session, [this](const HostCall& call) { trace_.Host(call); });
    rig_.SetSink(&trace_);
    rig_.AnswerBoxes([this](std::string_view style) { return boxes_.Take(style); });
    world_.face.AnswerQuestions([this](const QString& text) { return AnswerQuestion(text); });
    if (options.manualTime) world_.face.TimeAdvanced(0);
  }

  ~Impl() {
    rig_.SetSink(nullptr);
    rig_.AnswerBoxes({});
    world_.face.AnswerQuestions({});
    QObject::disconnect(called_);
  }

  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  void Start() {
    streams_ = std::make_unique<StandardStreams>();
    streams_->OnDrained([this] { AnswerLines(); });
    streams_->Start([this](const QByteArray& bytes) { Receive(bytes); });
  }

  QByteArray Answer(const QByteArray& line) {
    return AnswerLine(line,
                      [this](const QString& method, const QJsonObject& params) { return Handle(method, params); });
  }

 private:
  void Receive(const QByteArray& bytes) {
    if (bytes.isEmpty()) inputEnded_ = true;
    cutter_.Feed(bytes);
    AnswerLines();
  }

  /// Answers the lines that have arrived, as long as the other side takes the replies. The rest waits, and so does
  /// further input.
  void AnswerLines() {
    // An event loop inside a request may call this again. The later requests wait until that one is answered.
    if (answering_ || closed_) return;
    answering_ = true;
    while (!ended_ && !streams_->Full()) {
      auto line = cutter_.Next();
      if (!line && inputEnded_) line = cutter_.Rest();
      if (!line) break;
      const QByteArray reply = line->tooLong ? AnswerTooLong() : Answer(line->bytes);
      if (!reply.isEmpty()) streams_->Write(reply + '\n');
    }
    answering_ = false;
    if (ended_ || (inputEnded_ && !streams_->Full())) End();
  }

  RpcResult Handle(const QString& method, const QJsonObject& params) {
    if (ended_) return RpcError{rpc_code::kInvalidRequest, "the panel is ending"};
    if (method == "quit") return Quit();
    const auto found = methods_.constFind(method);
    if (found == methods_.constEnd()) {
      return RpcError{rpc_code::kUnknownMethod, QString("method: there is no \"%1\"").arg(method.left(kLongestEcho))};
    }
    // Events that timers or the screen left since the last reply are handled before this request.
    Settle();
    Params reader(params);
    RpcResult result = (*found)(world_, reader);
    // Without rest, a message on its way may still contain an address, so the arguments are kept.
    if (ComeToRest()) arguments_.Clear();
    return result;
  }

  /// Waits until what the tools and the panel have under way has ended and everything posted has been handled, or until
  /// the patience is over. What was posted may begin something new.
  bool ComeToRest() {
    const auto working = [this] { return world_.face.Working() || world_.rig.IsWorking(); };
    const QDeadlineTimer patience(kPatienceMilliseconds);
    bool rests = false;
    do {
      WaitWhile(working, static_cast<int>(patience.remainingTime()));
      rests = Settle();
    } while (working() && !patience.hasExpired());
    return rests;
  }

  /// The panel's own questions are answered like the message boxes of the tools.
  bool AnswerQuestion(const QString& text) {
    const std::string answer = boxes_.Take("question");
    trace_.Box(u"pnlpanel", text.toStdU16String(), "question", answer);
    return answer == "yes" || answer == "ok";
  }

  RpcResult Quit() {
    session_.CloseAll();
    Settle();
    ended_ = true;
    return Done();
  }

  void End() {
    ended_ = true;
    closed_ = true;
    streams_->Stop();
    session_.CloseAll();
    Settle();
    streams_->Flush();
    // Queued, because after a short input the loop may not run yet.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
  }

  static constexpr int kLongestEcho = 100;
  /// How long a reply waits for a program that is being read or written.
  static constexpr int kPatienceMilliseconds = 5000;

  HostSession& session_;
  pnl::rig::Rig& rig_;
  TraceLog trace_;
  BoxAnswers boxes_;
  MessageArguments arguments_;
  PublishedRequest request_;
  RemoteWorld world_;
  MethodTable methods_;
  QMetaObject::Connection called_;
  LineCutter cutter_;
  std::unique_ptr<StandardStreams> streams_;
  bool inputEnded_ = false;
  bool answering_ = false;  // AnswerLines is running
  bool ended_ = false;      // no request is answered any more
  bool closed_ = false;     // the tools were asked to close
};

RemoteControl::RemoteControl(HostSession& session, PanelFace& face, RemoteOptions options, QObject* parent)
    : QObject(parent) {
  session.SetReacting(!options.bare);
  // Without the rig a backend library drives the machine, and there is nothing to control.
  if (pnl::rig::Rig* rig = PnlRig()) impl_ = std::make_unique<Impl>(session, face, options, *rig);
}

RemoteControl::~RemoteControl() = default;

void RemoteControl::Start() {
  if (impl_) impl_->Start();
}

QByteArray RemoteControl::Answer(const QByteArray& line) {
  if (!impl_) return {};
  return impl_->Answer(line);
}

}  // namespace panel
