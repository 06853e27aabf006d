// SPDX-License-Identifier: MIT
// The search of the guide: shows the sections that hold all words, and marks what was found.
'use strict';

const box = document.getElementById('words');
const found = document.getElementById('found');
const sections = [...document.querySelectorAll('main section')];
const kept = sections.map(section => section.innerHTML);

function marked(node, words) {
  if (node.nodeType === Node.TEXT_NODE) {
    const text = node.data, lower = text.toLowerCase();
    for (const word of words) {
      const at = lower.indexOf(word);
      if (at < 0) continue;
      const rest = node.splitText(at + word.length);
      const mark = document.createElement('mark');
      mark.append(text.slice(at, at + word.length));
      node.data = text.slice(0, at);
      node.after(mark);
      marked(node, words);
      marked(rest, words);
      return;
    }
  } else if (node.nodeName !== 'MARK') {
    [...node.childNodes].forEach(child => marked(child, words));
  }
}

function search() {
  const words = box.value.toLowerCase().split(/\s+/).filter(word => word);
  let count = 0;
  sections.forEach((section, i) => {
    section.innerHTML = kept[i];
    const text = section.textContent.toLowerCase();
    const fits = words.every(word => text.includes(word));
    section.hidden = !fits;
    document.querySelector(`nav a[href="#${section.id}"]`).parentElement.hidden = !fits;
    count += fits;
    if (fits && words.length) marked(section, words);
  });
  found.textContent = !words.length ? '' : count === 1 ? '1 chapter' : `${count} chapters`;
}

box.addEventListener('input', search);
if (location.hash === '#search') box.focus();
