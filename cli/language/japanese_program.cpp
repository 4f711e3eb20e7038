#include "cli/language/language.h"

namespace kivcli {
namespace {

constexpr Translation kRows[] = {
    {L"the run was given up: %1", L"処理を中止しました: %1"},
    {L"standard output cannot be written: %1", L"標準出力に書き込めません: %1"},
    {L"this module belongs to another version of the program; please install both anew",
     L"このモジュールはプログラムの別のバージョンのものです。両方をインストールし直してください"},
    // the manual page
    {L"NAME", L"名前"},
    {L"SYNOPSIS", L"書式"},
    {L"DESCRIPTION", L"説明"},
    {L"CALLS", L"サブコマンド"},
    {L"EXIT STATUS", L"終了ステータス"},
    {L"ENVIRONMENT", L"環境変数"},
    {L"FILES", L"ファイル"},
    {L"EXAMPLES", L"例"},
    {L"converts CAD drawings by rules", L"規則に従って CAD の図面を変換する"},
    {L"Drawings are read and written as DXF and DWG. Each keeps its bytes but for what the rules name.",
     L"図面は DXF と DWG で読み書きします。規則が指定するところ以外は 1 バイトも変わりません。"},
    {L"everything was done", L"すべて完了しました"},
    {L"some drawing failed or had a problem, lines of the CVT file are dropped, or the log or standard "
     L"output "
     L"cannot be written; each is named on standard error",
     L"失敗した図面または問題のある図面がある、CVT "
     L"ファイルに読み捨てた行がある、ログまたは標準出力に書き込めない。"
     L"それぞれ標準エラー出力に示します"},
    {L"interrupted by Ctrl-C; by another signal as that signal ends programs",
     L"Ctrl-C で中断しました。ほかのシグナルでは、そのシグナルで終わるプログラムと同じです"},
    {L"the command line or the CVT file is unusable", L"コマンドラインまたは CVT ファイルが使えません"},
    {L"folders, with \";\" between them, in which linetype files, shape fonts and drawings of arrows are "
     L"looked for behind the folder of the CVT file",
     L"CVT "
     L"ファイルのフォルダの次に、線種ファイル、シェイプフォント、矢印の図面を探すフォルダ。「;"
     L"」で区切ります"},
    {L"the language of help and messages: Japanese or English",
     L"ヘルプとメッセージの言語。日本語または英語です"},
    {L"the module that converts, beside the program",
     L"変換を行うモジュール。プログラムと同じ場所にあります"},
    {L"the linetype files that come with the program, in a folder beside it",
     L"付属の線種ファイルのフォルダ。プログラムと同じ場所にあります"},
};

}  // namespace

std::span<const Translation> japaneseOfProgram() { return kRows; }

}  // namespace kivcli
