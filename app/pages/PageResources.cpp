#include "app/pages/PageResources.h"

namespace zor {

const std::string_view pageStyleSheet = R"(:root {
  color-scheme: light dark;
  --ground: #f4f5f7; --card: #fff; --well: #e9ebef; --ink: #1b1d21; --quiet: #5c626c; --line: #d8dbe1;
  --accent: #0a63c4; --shade: 0 1px 2px rgb(20 30 50 / .07), 0 6px 20px rgb(20 30 50 / .06);
}
@media (prefers-color-scheme: dark) {
  :root {
    --ground: #141518; --card: #202226; --well: #2a2d32; --ink: #f1f2f4; --quiet: #a5abb5; --line: #34373d;
    --accent: #6db3ff; --shade: 0 1px 2px rgb(0 0 0 / .4), 0 6px 20px rgb(0 0 0 / .25);
  }
}
* { box-sizing: border-box; }
html { background: var(--ground); color: var(--ink); -webkit-text-size-adjust: 100%; }
body {
  margin: 0 auto; max-width: 168rem; padding: clamp(1.25rem, 3.5vw, 3.5rem) clamp(1rem, 4vw, 4rem);
  font: 1rem/1.5 system-ui, "Helvetica Neue", "Nimbus Sans", "Liberation Sans", sans-serif;
}
section + section { margin-top: 3rem; padding-top: 2.5rem; border-top: 1px solid var(--line); }
.site {
  display: flex; align-items: center; gap: .55rem; margin: 0 0 .35rem; max-width: none;
  color: var(--accent); font-size: .9rem; font-weight: 600; letter-spacing: .01em;
}
.site::before { content: ""; flex: none; width: .55rem; height: .55rem; border-radius: 50%; background: #2fa84f; }
h1, h2, p, a { overflow-wrap: anywhere; unicode-bidi: isolate; }
h1 { margin: 0 0 .4rem; font-size: clamp(1.5rem, 1.1rem + 1.6vw, 2.25rem); line-height: 1.15; letter-spacing: -.02em; }
h2 { margin: 1.5rem 0 .4rem; font-size: 1.125rem; line-height: 1.35; }
p { margin: 0 0 1rem; max-width: 46rem; color: var(--quiet); }
a { color: var(--accent); text-underline-offset: .2em; border-radius: 3px; }
a:focus-visible { outline: 3px solid var(--accent); outline-offset: 3px; }
.pictures {
  display: grid; gap: clamp(1rem, 1.6vw, 1.75rem); margin: 1.5rem 0 2rem; padding: 0; list-style: none;
  grid-template-columns: repeat(auto-fill, minmax(min(100%, clamp(18rem, 23vw, 33rem)), 1fr));
}
.pictures > li {
  position: relative; display: flex; flex-direction: column; min-width: 0; overflow: hidden;
  background: var(--card); border: 1px solid var(--line); border-radius: 14px; box-shadow: var(--shade);
  transition: border-color .15s, transform .15s;
}
.pictures > li:hover { border-color: var(--accent); }
.pictures > li:focus-within { overflow: visible; }
.picture { border-radius: 13px 13px 0 0; border-bottom: 1px solid var(--line); background: var(--well); overflow: hidden; }
.picture iframe { display: block; width: 100%; aspect-ratio: 16 / 10; border: 0; pointer-events: none; }
.pictures h1, .pictures h2, .pictures p {
  margin: 0; padding: .8rem 1rem .9rem; max-width: none; font-size: 1rem; font-weight: 600; line-height: 1.35;
  letter-spacing: normal;
}
.pictures a {
  display: -webkit-box; -webkit-box-orient: vertical; -webkit-line-clamp: 3; overflow: hidden;
  color: inherit; text-decoration: none;
}
.pictures a::after { content: ""; position: absolute; inset: 0; border-radius: 14px; }
.pictures li:hover a { color: var(--accent); }
.pictures a:focus-visible { outline: none; }
.pictures a:focus-visible::after { outline: 3px solid var(--accent); outline-offset: 2px; }
.thumbnail, .thumbnail body { height: 100%; margin: 0; padding: 0; max-width: none; background: var(--well); }
.thumbnail img { display: block; width: 100%; height: 100%; padding: .5rem; object-fit: contain; }
@media (prefers-reduced-motion: no-preference) { .pictures > li:hover { transform: translateY(-2px); } }
@media (forced-colors: active) { .pictures > li { border-color: CanvasText; } }
@media print { .pictures > li { break-inside: avoid; box-shadow: none; } }
)";

const std::string_view pageIcon = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
<rect width="32" height="32" rx="7" fill="#0a63c4"/>
<path d="M6 21a10 10 0 1 1 20 0" fill="none" stroke="#fff" stroke-width="3" stroke-linecap="round"/>
<path d="M16 21l5-8" stroke="#ffd34d" stroke-width="3" stroke-linecap="round"/>
<circle cx="16" cy="21" r="2.5" fill="#fff"/>
</svg>
)";

}  // namespace zor
