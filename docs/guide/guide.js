// SPDX-License-Identifier: MIT
// The search of the guide: shows the parts that contain all words, and marks the matches. A part is
// a section without subsections, or the beginning of a chapter before its first subsection.
'use strict';

const box = document.getElementById('words');
const found = document.getElementById('found');
const chapters = [...document.querySelectorAll('main > section')].map(section => {
  const inner = [...section.querySelectorAll(':scope > section')];
  const own = [...section.children].filter(child => child.nodeName !== 'SECTION');
  return {
    section, own, title: section.querySelector('h2').textContent,
    parts: [{ id: section.id, nodes: own }, ...inner.map(part => ({ id: part.id, nodes: [part] }))],
  };
});
const links = new Map([...document.querySelectorAll('nav li > a')].map(
  link => [link.getAttribute('href').slice(1), link.parentElement]));

function unmark() {
  for (const mark of document.querySelectorAll('main mark')) {
    const parent = mark.parentNode;
    mark.replaceWith(...mark.childNodes);
    parent.normalize();
  }
}

function markIn(root, words) {
  const walker = document.createTreeWalker(root, NodeFilter.SHOW_TEXT);
  const texts = [];
  while (walker.nextNode()) texts.push(walker.currentNode);
  for (let text of texts) {
    for (let at; (at = nextMatch(text.data, words)); ) {
      const hit = text.splitText(at.index);
      text = hit.splitText(at.length);
      const mark = document.createElement('mark');
      hit.replaceWith(mark);
      mark.append(hit);
    }
  }
}

// The place of the first match of any of the words in a text, or null.
function nextMatch(text, words) {
  const lower = text.toLowerCase();
  let best = null;
  for (const word of words) {
    const index = lower.indexOf(word);
    if (index >= 0 && (!best || index < best.index)) best = { index, length: word.length };
  }
  return best;
}

function search() {
  const words = box.value.toLowerCase().split(/\s+/).filter(word => word);
  let count = 0;
  unmark();
  for (const chapter of chapters) {
    let any = false;
    for (const part of chapter.parts) {
      const text = [chapter.title, ...part.nodes.map(node => node.textContent)].join(' ').toLowerCase();
      const fits = words.every(word => text.includes(word));
      any = any || fits;
      for (const node of part.nodes) node.hidden = !fits && node.nodeName !== 'H2';
      if (links.has(part.id)) links.get(part.id).hidden = !fits;
      if (!fits) continue;
      ++count;
      if (words.length) part.nodes.forEach(node => markIn(node, words));
    }
    chapter.section.hidden = !any;
    links.get(chapter.section.id).hidden = !any;
  }
  found.textContent = !words.length ? '' : count === 0 ? 'Nothing found' : count === 1 ? '1 place' : `${count} places`;
}

document.documentElement.classList.add('js');
box.addEventListener('input', () => { search(); scrollTo(0, 0); });
box.addEventListener('keydown', event => {
  if (event.key === 'Escape') { box.value = ''; search(); }
});
// A link in a match may lead to a part that the search hides.
addEventListener('hashchange', () => {
  const target = document.getElementById(location.hash.slice(1));
  if (!target || !target.closest('[hidden]')) return;
  box.value = '';
  search();
  target.scrollIntoView();
});
if (location.hash === '#search') box.focus();
